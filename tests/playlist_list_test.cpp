// The list being edited, without a window.

#include "archive/Module1.h"
#include "playlists/edited_list.h"
#include "support/table.h"

static const QString six = "1,2,3,4,5,6,#";

static QList<ListedSong> listed(const QList<int> &records)
{
    QList<ListedSong> songs;
    for (const int n : records)
        songs += addedSong(n);
    return songs;
}

// Rows of a list of six, or songs to be added, the place for them, and what the list then is.
struct Change {
    QList<int> rows;
    QString after = six;
    int place = 0;
};

static void make(const Change &change, const QString &what, EditedList &list)
{
    if (what == "add")
        list.add(listed(change.rows), change.place);
    else if (what == "remove")
        list.remove(change.rows);
    else if (what == "move")
        list.move(change.rows, change.place);
    else if (what == "up")
        list.moveUp(change.rows);
    else if (what == "down")
        list.moveDown(change.rows);
    else
        list.replaceAll(listed(change.rows), {});
}

class PlaylistListTest : public QObject
{
    Q_OBJECT
private slots:
    void init()
    {
        Module1 = {};
        Module1.recCount = 9000;
        for (size_t n = 1; n <= 9000; n += 1)
            Module1.recNumber[n] = QString::number(n);
    }

    void eachChange_isShownAndOneStepThatCanBeTakenBack_data()
    {
        tableOf<Change>({{"add, within", {{7, 8}, "1,2,7,8,3,4,5,6,#", 2}},
                         {"remove, some", {{0, 2, 3}, "2,5,6,#"}},
                         {"remove, none", {}},
                         {"move, to the front", {{2, 4}, "1,3,5,2,4,6,#", 1}},
                         {"move, to the end", {{0, 2}, "2,4,5,6,1,3,#", 6}},
                         {"move, from both sides", {{1, 4}, "1,3,2,5,4,6,#", 3}},
                         {"move, to where they are", {{2, 3}, six, 3}},
                         {"move, none", {}},
                         {"up, three", {{1, 2, 5}, "2,3,1,4,6,5,#"}},
                         {"up, one of them at the top", {{0, 3}}},
                         {"up, none", {}},
                         {"down, three", {{1, 3, 4}, "1,3,2,6,4,5,#"}},
                         {"down, one of them at the bottom", {{2, 5}}},
                         {"down, none", {}},
                         {"another list", {{9}, "9,#"}}});
    }
    void eachChange_isShownAndOneStepThatCanBeTakenBack()
    {
        const auto row = tableRow<Change>();
        QString shown = "#"; // what the rows show, as the list's text has it
        EditedList list([&](const RowChange &change) {
            QStringList rows = shown.split(',');
            rows.remove(change.first, change.removed);
            for (int at = change.first; at < change.first + change.inserted; at += 1)
                rows.insert(at, list.songs()[at].row.mid(2));
            shown = rows.join(',');
        });
        list.add(listed({1, 2, 3, 4, 5, 6}));
        make(row, QString(QTest::currentDataTag()).section(',', 0, 0), list);
        QCOMPARE(list.text() + ' ' + shown, row.after + ' ' + row.after);
        list.undo();
        const QString before = row.after == six ? "#" : six;
        QCOMPARE(list.text() + ' ' + shown, before + ' ' + before);
        list.redo();
        QCOMPARE(list.text() + ' ' + shown, row.after + ' ' + row.after);
    }

    void losses_areWhatHasNoNumberNow_untilAccepted()
    {
        EditedList list([](const RowChange &) {});
        const auto losses = [&] {
            const EditedList::Losses found = list.losses();
            return QStringLiteral("%1 %2").arg(found.notInArchive).arg(found.notYetSaved);
        };
        Module1.recNumber[8999] = Module1.recNumber[9000] = "";
        list.add({storedSong(1), storedSong(8999), storedSong(9000), storedSong(0), storedSong(9001)});
        QCOMPARE(losses(), "2 2");
        Module1.recNumber[9000] = "9000";
        QCOMPARE(losses(), "2 1");
        QCOMPARE(list.text(), "1,,9000,,,#");
        list.remove({3});
        QCOMPARE(losses(), "1 1");
        list.acceptLosses();
        list.add({storedSong(9999)});
        QCOMPARE(losses(), "1 0");
    }
};

QTEST_GUILESS_MAIN(PlaylistListTest)
#include "playlist_list_test.moc"

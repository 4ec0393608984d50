// The list being edited, without a window.

#include "archive/Module1.h"
#include "playlists/edited_list.h"

#include <QTest>

#include <numeric>
#include <random>

using Songs = QList<int>;

static QList<ListedSong> listed(const Songs &records)
{
    QList<ListedSong> songs;
    for (const int n : records)
        songs += addedSong(n);
    return songs;
}

// Each of the rows changes places with the one beside it, if there is one for all.
static Songs shifted(Songs songs, QList<int> rows, int by)
{
    if (by > 0)
        std::reverse(rows.begin(), rows.end());
    if (rows.isEmpty() || rows.first() + by < 0 || rows.first() + by == songs.size())
        return songs;
    for (const int row : rows)
        std::swap(songs[row], songs[row + by]);
    return songs;
}

// A list, what a window shows of it, and a plain model: every list that there was, and which of them stands.
// No song comes twice.
struct Game {
    QStringList rows;
    EditedList list{[this](const RowChange &change) {
        rows.remove(change.first, change.removed);
        for (int row = change.first; row < change.first + change.inserted; row += 1)
            rows.insert(row, list.songs()[row].row);
    }};
    QList<Songs> plain{{}};
    qsizetype now = 0;
    int lastSong = 0;
    std::mt19937 chance{20};

    int below(qsizetype end) { return static_cast<int>(chance() % static_cast<unsigned>(end)); }

    void become(const Songs &songs)
    {
        if (plain[now] == songs)
            return;
        now += 1;
        plain.resize(now);
        plain += songs;
    }

    void play()
    {
        const Songs songs = plain[now];
        const int place = below(songs.size() + 1);
        Songs others(1 + below(3));
        std::iota(others.begin(), others.end(), lastSong + 1);
        lastSong += 3;
        QList<int> some; // rows, and what the list has of them, and before and behind the place
        Songs moved, before, behind;
        for (int row = 0; row < songs.size(); row += 1) {
            if (below(4) == 0)
                some += row;
            (some.contains(row) ? moved : row < place ? before : behind) += songs[row];
        }
        switch (songs.size() > 20 ? 0 : below(10)) {
        case 0:
            list.remove(some);
            return become(before + behind);
        case 1:
            list.add(listed(others));
            return become(songs + others);
        case 2:
            list.add(listed(others), place);
            return become(songs.first(place) + others + songs.sliced(place));
        case 3:
            list.replaceAll(listed(others), {});
            return become(others);
        case 4:
            list.move(some, place);
            return become(before + moved + behind);
        case 5:
            list.moveUp(some);
            return become(shifted(songs, some, -1));
        case 6:
            list.moveDown(some);
            return become(shifted(songs, some, 1));
        case 7:
            list.redo();
            now = qMin(now + 1, plain.size() - 1);
            break;
        default:
            list.undo();
            now = qMax(now - 1, qsizetype(0));
        }
    }
};

class PlaylistListTest : public QObject
{
    Q_OBJECT
private slots:
    void init()
    {
        Module1 = {};
        Module1.recCount = 9000;
        for (size_t n = 1; n <= 9000; n += 1) {
            Module1.recNumber[n] = QString::number(n);
            Module1.recTitle[n] = "t" + Module1.recNumber[n];
        }
    }

    void thousandsOfSteps_areThoseOfAPlainList()
    {
        Game game;
        for (int i = 0; i < 2900; i += 1) {
            game.play();
            QStringList rows;
            QString text;
            for (const int n : game.plain[game.now]) {
                rows += QStringLiteral("t%1 _%1").arg(n);
                text += QString::number(n) + ',';
            }
            QCOMPARE(game.list.text(), text + '#');
            QCOMPARE(game.rows, rows);
        }
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

QTEST_APPLESS_MAIN(PlaylistListTest)
#include "playlist_list_test.moc"

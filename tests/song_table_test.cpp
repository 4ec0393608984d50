// What the window "Songs" lists, and in which order.
#include "support/songs_window.h"

#include <QComboBox>
#include <QLineEdit>
#include <QListView>

using namespace songs;

static void show(const QString &choice)
{
    auto *box = control<QComboBox>(window, "Show");
    box->setFocus();
    box->showPopup();
    QListView *list = box->findChild<QListView *>();
    const QModelIndex row = box->model()->index(box->findText(choice), 0);
    list->scrollTo(row);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualRect(row).center());
}

static QByteArray midiOf(int record)
{
    return linesOf(QString::number(record) + QString("|1,2,3").repeated(16));
}

// What is done, and the numbers of the songs that are then shown.
using Rows = std::initializer_list<std::pair<const char *, const char *>>;

class SongTableTest : public WindowTest
{
    Q_OBJECT
private slots:
    void find_searchesAllThatNamesASong_andSortingIsAsInADictionary()
    {
        const Program program(archiveOf(
            {"La mer|Debussy|sea|1", "Solo 10|Nils Frahm|piano sea|2", "solo 9|||0", "Été|Debussy||2"}));
        put("spartiti/generi.js", fileOf("generi", linesOf("Jazz|Classic" + QString("|x").repeated(31))));
        open();
        auto *find = control<QLineEdit>(window, "Find");
        for (const auto &[typed, found] : Rows{{"sea", "1 2"},
                                               {"jazz", "1"},
                                               {"9", "3"},
                                               {"4", "4"},
                                               {"classic solo frahm piano", "2"},
                                               {"ete debussy", "4"},
                                               {"\"mer debussy\"", ""},
                                               {"\"la mer\"", "1"},
                                               {"", "1 2 3 4"}}) {
            find->setText(typed);
            QCOMPARE(shown(0), found);
        }
        for (const auto &[column, up, down] : std::initializer_list<std::tuple<int, QString, QString>>{
                 {1, "4 1 3 2", "2 3 1 4"},
                 {0, "1 2 3 4", "4 3 2 1"},
                 {2, "3 1 4 2", "2 1 4 3"}, // equal ones stand by their numbers
                 {4, "3 2 4 1", "1 2 4 3"}}) {
            sortBy(column);
            QCOMPARE(shown(0), up);
            sortBy(column);
            QCOMPARE(shown(0), down);
        }
    }

    void show_choosesByOneLackEach()
    {
        const Program program(
            archiveOf({"A||x|1", "B||x|1", "C||x|1", "D||x|0", "|||1", "É|||1", "e|||1", "F|||1", "G|||1"}));
        put("spartiti/m.jpg", "empty");
        for (int n = 1; n <= 9; n += 1) {
            if (n != 1)
                put(QString("spartiti/%1L.jpg").arg(n), "left");
            put(QString("spartiti/%1R.jpg").arg(n), n == 2 ? "empty" : "right");
            if (n != 3)
                put(QString("spartiti/audio/%1.mp3").arg(n), {});
        }
        put("spartiti/playlist.js", fileOf("playlist", "\"One\",\"9,1,2,3,4,5,6,7,9,50,#\",\r\n"));
        open();
        editCell(6, 3, "y");
        for (const auto &[choice, numbers] : Rows{{"Without left page", "1"},
                                                  {"Without right page", "2"},
                                                  {"Without recording", "3"},
                                                  {"Without category", "4"},
                                                  {"Without title", "5"},
                                                  {"Same title as another", "6 7"},
                                                  {"Changed and not saved", "7"},
                                                  {"In no playlist", "8"},
                                                  {"One", "9 1 2 3 4 5 6 7 9"},
                                                  {"All", "1 2 3 4 5 6 7 8 9"},
                                                  {"One", "9 1 2 3 4 5 6 7 9"}}) {
            show(choice);
            QCOMPARE(shown(0), numbers);
        }
        sortBy(0); // by number, no longer in its order
        QCOMPARE(shown(0), "1 2 3 4 5 6 7 9 9");
        QVERIFY(QFile::remove("spartiti/playlist.js")); // seen when the window is the active one again
        waitUntilActive("Form1");
        waitUntilActive(window);
        QCOMPARE(shown(0), "1 2 3 4 5 6 7 8 9");
    }

    void whatLiesOnTheDisk_isRead()
    {
        const Program program(archiveOf({"A|||33", "B|||9", "C|||99"}));
        for (const char *name :
             {"2L.jpg", "1R.jpg", "03L.jpg", "3l.jpg", "L.jpg", "99999999999L.jpg", "audio/3.mp3"})
            put("spartiti/" + QString(name), "x");
        put("spartiti/midi.js", fileOf("midi", midiOf(1) + midiOf(77)));
        put("spartiti/playlist.js", fileOf("playlist", "\"P\",\"1,1,#\",\r\n\"Q\",\"1,3,#\",\r\n"));
        open();
        QStringList columns;
        for (int column = 4; column < table()->model()->columnCount(); column += 1)
            columns += shown(column);
        QCOMPARE(columns.join('|'), "33 9 99| ✓ |✓  |  ✓|✓  |2  1");
        QCOMPARE(table()->model()->index(0, 9).data(Qt::ToolTipRole).toString(), "P\nQ");
        QCOMPARE(textOf(window, "failures"), "");
        put("spartiti/midi.js", fileOf("midi", midiOf(1) + linesOf("2|1,2,3")));
        waitUntilActive("Form1");
        waitUntilActive(window);
        QVERIFY(textOf(window, "failures").startsWith("spartiti/midi.js is damaged"));
    }
};

QTEST_MAIN(SongTableTest)
#include "song_table_test.moc"

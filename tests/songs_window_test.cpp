#include "files/data_folder.h"
#include "files/replacement.h"
#include "songs/set_list.h"
#include "support/songs_window.h"

#include <QClipboard>
#include <QComboBox>
#include <QProcess>
#include <QScrollBar>
#include <QStandardPaths>

using namespace songs;

static const QString path = "spartiti/archivio.js";

static QString tags()
{
    return Module1.recTags[1] + '|' + Module1.recTags[2] + '|' + Module1.recTags[3];
}

static void show(const QString &choice)
{
    auto *box = control<QComboBox>(window, "Show");
    const QModelIndex row = box->model()->index(box->findText(choice), 0);
    box->showPopup();
    box->view()->scrollTo(row);
    QTest::mouseClick(box->view()->viewport(), Qt::LeftButton, {}, box->view()->visualRect(row).center());
}

// What is done, and the numbers of the songs that are then shown.
using Rows = std::initializer_list<std::pair<const char *, const char *>>;

class SongsWindowTest : public WindowTest
{
    Q_OBJECT
private slots:
    void aSong_isShownByAFewKeys()
    {
        const Program program(archiveOf({"La mer|Debussy||1", "Röyksopp|||1", "Mer la|||1"}));
        open();
        QCOMPARE(textOf(window, "count"), "3 of 3 songs");
        QVERIFY(!table()->horizontalScrollBar()->isVisible()); // on a screen of 800 pixels
        keys("royks");
        QCOMPARE(shown(1), "Röyksopp");
        key(Qt::Key_Down);
        key(Qt::Key_Return);
        QCOMPARE(textOf("Form1", "Text2"), "Röyksopp");
        waitUntilActive("Form1");
        open(); // the same list comes forward
        keys("\"la mer\""); // in place of what was selected
        QCOMPARE(shown(1), "La mer");
        key(Qt::Key_Down);
        QVERIFY(table()->hasFocus());
        keys("x"); // typed in the table, it is for the box
        QCOMPARE(textOf(window, "Find") + textOf(window, "count"), "\"la mer\"x0 of 3 songs");
        QVERIFY(textOf(window, "nothing") == "Nothing found." && control(window, "nothing")->isVisible());
        key(Qt::Key_Escape);
        QVERIFY(!windowNamed(window));
    }

    void theList_keepsPlaceSortAndSearch()
    {
        QStringList records{"b|||1"};
        for (int n = 2; n <= 200; n += 1)
            records += QStringLiteral("a%1|||1").arg(n);
        Program program(archiveOf(records));
        open();
        keys("a");
        sortBy(1);
        sortBy(1);
        clickCell(1, 1);
        const auto place = [] { // the song chosen, the first in view, and how many there are
            return table()->currentIndex().siblingAtColumn(1).data().toString() + ' '
                + cell(window, window, table()->rowAt(0), 1) + ' ' + textOf(window, "count");
        };
        table()->verticalScrollBar()->setValue(50);
        QCOMPARE(place(), "a199 a150 199 of 200 songs");
        program.rooms.form1.showSong(1);
        type("Form1", "Text2", "az"); // comes first
        QCOMPARE(place(), "a199 a150 200 of 200 songs");
        putArchive(QStringList{"a1000|||1"} + records.mid(1) + QStringList{"c|||1"});
        program.rooms.form1.reload();
        QCOMPARE(place(), "a199 a150 200 of 201 songs");
        QVERIFY(!program.rooms.edits.stack().canUndo()); // the steps were about other songs
        waitUntilActive(window);
        editCell(60, 1, "b"); // is no longer found, and the next stands in its place
        QCOMPARE(place(), "a140 a150 199 of 201 songs");
    }

    void aCell_isEditedSavedAndUndone()
    {
        const Program program(archiveOf({"A|||1", "B|||1"}));
        open();
        clickCell(1, 1);
        key(Qt::Key_F2);
        keys("Be\"");
        key(Qt::Key_Z, Qt::ControlModifier); // the box's own
        QVERIFY(Module1.recTitle[2] == "B" && qobject_cast<QLineEdit *>(QApplication::focusWidget()));
        key(Qt::Key_A, Qt::ControlModifier);
        keys("Be\"");
        key(Qt::Key_Return);
        QTRY_COMPARE(textOf("Form1", "Text2"), "Be'"); // the last song, which the main window shows
        QCOMPARE(textOf(window, "unsaved"), "1 change not saved");
        QCOMPARE(contents(path), archiveOf({"A|||1", "B|||1"}));
        click(window, "Save");
        QCOMPARE(contents(path), archiveOf({"A|||1", "Be'|||1"}));
        waitUntilActive(window);
        table()->setFocus();
        key(Qt::Key_Z, Qt::ControlModifier);
        key(Qt::Key_F, Qt::ControlModifier);
        keys("b");
        key(Qt::Key_Z, Qt::ControlModifier); // takes the letter back, not an edit
        QCOMPARE(textOf(window, "Find") + shown(1), "A B");
    }

    void manySongs_areChangedAsOneStep()
    {
        const QByteArray archive = archiveOf({"A||x y|1", "B||Y|2", "C|||3"});
        const Program program(archive);
        putCategories({"Jazz"});
        open();
        chooseForAll({"Set the category", "Jazz"});
        QCOMPARE(Module1.recCategory[2] + Module1.recCategory[3], "11");
        inDialog([] { keys("loud y"); });
        chooseForAll({"Add a tag…"});
        QCOMPARE(tags(), "x y loud|Y loud|loud y");
        key(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(tags(), "x y|Y|");
        inDialog([] { key(Qt::Key_Down); }); // from x to y
        chooseForAll({"Remove a tag…"});
        QCOMPARE(tags(), "x||");
        QCOMPARE(contents(path), archive);
        key(Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QGuiApplication::clipboard()->text().section('\n', 0, 1),
                 "No.\tTitle\tAuthor\tTags\tCategory\tLeft\tRight\tRecording\tMIDI\tPlaylists\n"
                 "1\tA\t\tx\tJazz\t\t\t\t\t");
    }

    void midiSettings_areCopiedInOneWriting()
    {
        Program program(archiveOf({"A|||1", "B|||1", "C|||1"}), {enterKey, Answer::Yes});
        const QByteArray others = midiBlock("700", "é,,9") + midiBlock("1", "1,2,3");
        const QByteArray before = fileOf("midi", others + midiBlock("3", "4,5,6"));
        put(midiPath(), before);
        open();
        QStringList written;
        setReplacementKeeper({[&](const QString &file) { written += file; }, [](const QString &, bool) {}});
        chooseForAll({"Copy the MIDI settings of the first"});
        QVERIFY(program.told.value(0).startsWith("Give 2 songs the MIDI settings of song 1, A?"));
        QVERIFY(program.told.value(0).endsWith("Undo does not bring them back."));
        QCOMPARE(contents(midiPath()), before);
        chooseForAll({"Copy the MIDI settings of the first"});
        setReplacementKeeper({});
        QCOMPARE(contents(midiPath()),
                 fileOf("midi", others + midiBlock("3", "1,2,3") + midiBlock("2", "1,2,3")));
        QCOMPARE(written, QStringList{midiPath()});
        QVERIFY(!program.rooms.edits.stack().canUndo());
        QCOMPARE(cell(window, window, 1, 8), QString(QChar(0x2713)));
    }

    void theSetList_isOfTwoPagesAndReadable()
    {
        if (QStandardPaths::findExecutable("pdftotext").isEmpty())
            QSKIP("there is no pdftotext");
        QStringList records{"|||0", QString("long ").repeated(40) + "|||0"};
        SongsOnDisk::Playlist playlist{"Summer", {41, 2, 1}};
        for (int n = 3; n <= 40; n += 1) {
            records += QStringLiteral("Song %1 é|An author||0").arg(n);
            playlist.songs.prepend(n);
        }
        const Program program(archiveOf(records));
        put("list.pdf", setListPdf(playlist));
        QProcess reader;
        reader.start("pdftotext", {"-layout", "list.pdf", "-"});
        QVERIFY(reader.waitForFinished());
        QStringList lines = QString::fromUtf8(reader.readAllStandardOutput()).split('\n');
        for (QString &line : lines)
            line = (line.startsWith('\f') ? "\f" : "") + line.simplified();
        QCOMPARE(lines.value(0), "Summer");
        for (const char *line :
             {"1 Song 40 é 40", "38 Song 3 é 3", "39 (not in the archive) 41", "41 (without title) 1"})
            QVERIFY2(lines.contains(line), qPrintable(lines.join('\n')));
        QCOMPARE(lines.join(' ').count("long"), 40);
        QCOMPARE(lines.filter("\f").size(), 2); // the ends of two pages
        QVERIFY(lines.filter("\f")[0].contains("Song")); // an author stands with his song
    }

    void find_searchesAllThatNamesASong_andSortingIsAsInADictionary()
    {
        const Program program(archiveOf(
            {"La mer|Debussy|sea|1", "Solo 10|Nils Frahm|piano sea|2", "solo 9|||0", "Été|Debussy||2"}));
        putCategories({"Jazz", "Classic"});
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
        put("spartiti/midi.js", fileOf("midi", midiBlock("1", "") + midiBlock("77", "")));
        put("spartiti/playlist.js", fileOf("playlist", "\"P\",\"1,1,#\",\r\n\"Q\",\"1,3,#\",\r\n"));
        open();
        QStringList columns;
        for (int column = 4; column < table()->model()->columnCount(); column += 1)
            columns += shown(column);
        QCOMPARE(columns.join('|'), "33 9 99| ✓ |✓  |  ✓|✓  |2  1");
        QCOMPARE(textOf(window, "failures"), "");
        put("spartiti/midi.js", fileOf("midi", midiBlock("1", "") + linesOf("2|1,2,3")));
        waitUntilActive("Form1");
        waitUntilActive(window);
        QVERIFY(
            QDir::fromNativeSeparators(textOf(window, "failures")).startsWith("spartiti/midi.js is damaged"));
    }
};

QTEST_MAIN(SongsWindowTest)
#include "songs_window_test.moc"

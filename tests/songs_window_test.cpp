#include "files/data_folder.h"
#include "files/replacement.h"
#include "songs/set_list.h"
#include "support/songs_window.h"

#include <QClipboard>
#include <QLineEdit>
#include <QProcess>
#include <QScrollBar>
#include <QStandardPaths>

using namespace songs;

static const QString path = "spartiti/archivio.js";

static QString tags()
{
    return Module1.recTags[1] + '|' + Module1.recTags[2] + '|' + Module1.recTags[3];
}

static QStringList pdfLines(const QString &file)
{
    QProcess reader;
    reader.start("pdftotext", {"-layout", file, "-"});
    reader.waitForFinished();
    QStringList lines = QString::fromUtf8(reader.readAllStandardOutput()).split('\n');
    for (QString &line : lines)
        line = (line.startsWith('\f') ? "\f" : "") + line.simplified();
    return lines;
}

class SongsWindowTest : public WindowTest
{
    Q_OBJECT
private slots:
    void aSong_isShownByAFewKeys()
    {
        const Program program(archiveOf({"La mer|Debussy||1", "Röyksopp|||1", "Mer la|||1"}));
        open();
        QVERIFY(control<QLineEdit>(window, "Find")->hasFocus());
        QCOMPARE(textOf(window, "count"), "3 of 3 songs");
        QVERIFY(!table()->horizontalScrollBar()->isVisible()); // on a screen of 800 pixels
        keys("royks");
        QCOMPARE(shown(1), "Röyksopp");
        key(Qt::Key_Down);
        QVERIFY(table()->hasFocus());
        key(Qt::Key_Return);
        QCOMPARE(textOf("Form1", "Text2"), "Röyksopp");
        waitUntilActive("Form1");
        open(); // the same list comes forward
        keys("\"la mer\""); // in place of what was selected
        QCOMPARE(shown(1), "La mer");
        key(Qt::Key_Down);
        keys("x"); // typed in the table, it is for the box
        QCOMPARE(textOf(window, "Find"), "\"la mer\"x");
        QCOMPARE(textOf(window, "count"), "0 of 3 songs");
        QVERIFY(textOf(window, "nothing") == "Nothing found." && control(window, "nothing")->isVisible());
        windowNamed(window)->resize(1, 1); // which is made as small as it can be
        QVERIFY(control(window, "Find")->width() > 100);
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

    void aCell_isEditedAndUndone()
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
        QTRY_COMPARE(Module1.recTitle[2], "Be'");
        QCOMPARE(textOf("Form1", "Text2"), "Be'"); // the last song, which the main window shows
        QCOMPARE(textOf(window, "unsaved"), "1 change not saved");
        QCOMPARE(contents(path), archiveOf({"A|||1", "B|||1"}));
        click(window, "Save");
        QCOMPARE(contents(path), archiveOf({"A|||1", "Be'|||1"}));
        QCOMPARE(textOf(window, "unsaved"), "");
        waitUntilActive(window);
        table()->setFocus();
        key(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(shown(1), "A B");
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
        const auto block = [](int n, const char *row) {
            return linesOf(QString::number(n) + QString('|' + QString(row)).repeated(16));
        };
        Program program(archiveOf(QStringList(500, "A|||1")), {enterKey, Answer::Yes});
        const QByteArray others = block(700, "é,,9") + block(1, "1,2,3") + block(600, "07,8,300");
        const QByteArray before = fileOf("midi", others + block(3, "4,5,6"));
        put(midiPath(), before);
        open();
        QStringList written;
        setReplacementKeeper({[&](const QString &file) { written += file; }, [](const QString &, bool) {}});
        chooseForAll({"Copy the MIDI settings of the first"});
        QVERIFY(program.told.value(0).startsWith("Give 499 songs the MIDI settings of song 1, A?"));
        QVERIFY(program.told.value(0).endsWith("Undo does not bring them back."));
        QCOMPARE(contents(midiPath()), before);
        chooseForAll({"Copy the MIDI settings of the first"});
        setReplacementKeeper({});
        QByteArray after = others + block(3, "1,2,3");
        for (int n = 2; n <= 500; n += 1)
            after += n == 3 ? QByteArray() : block(n, "1,2,3");
        QCOMPARE(contents(midiPath()), fileOf("midi", after));
        QCOMPARE(written, QStringList{midiPath()});
        QVERIFY(!program.rooms.edits.stack().canUndo());
        QCOMPARE(cell(window, window, 499, 8), QString(QChar(0x2713)));
    }

    void theSetList_isOfTwoPagesAndReadable()
    {
        if (QStandardPaths::findExecutable("pdftotext").isEmpty())
            QSKIP("there is no pdftotext");
        QStringList records;
        SongsOnDisk::Playlist playlist{"Summer", {}};
        for (int n = 1; n <= 40; n += 1) {
            records += QStringLiteral("Song %1 é|An author||0").arg(n);
            playlist.songs.prepend(n);
        }
        const Program program(archiveOf(records));
        put("list.pdf", setListPdf(playlist));
        QStringList lines = pdfLines("list.pdf");
        QCOMPARE(lines.value(0), "Summer");
        QVERIFY(lines.contains("1 Song 40 é 40") && lines.contains("40 Song 1 é 1"));
        QCOMPARE(lines.filter("\f").size(), 2); // the ends of two pages
        QVERIFY(lines.filter("\f")[0].contains("Song")); // an author stands with his song
        Module1.recTitle[40] = QString("long ").repeated(40);
        Module1.recTitle[39].clear();
        playlist.songs = {40, 39, 41};
        put("list.pdf", setListPdf(playlist));
        lines = pdfLines("list.pdf");
        QCOMPARE(lines.join(' ').count("long"), 40);
        QVERIFY(lines.contains("2 (without title) 39") && lines.contains("3 (not in the archive) 41"));
    }
};

QTEST_MAIN(SongsWindowTest)
#include "songs_window_test.moc"

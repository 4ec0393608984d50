#include "archive/archive_operations.h"
#include "controls/image_frame.h"
#include "support/windows.h"

static const QString window = "Tessaline 5.0";
static const QString path = "spartiti/archivio.js";
static const QString beginQuestion = "There are no titles in the archive of this folder:";

// The song on display: "number title author tags".
static QString shown()
{
    QStringList texts;
    for (const QString box : {"Text1", "Title", "Author", "Tags"})
        texts += textOf(window, box);
    return texts.join(' ').trimmed();
}

// What is typed in all boxes, one title below the other; the button, or null for the start; whether an
// archive arrives "before" that or while it "asks", the answer is "No" or the disk is "full"; the archive and
// the song then; and how the last box begins.
using Beginning = std::tuple<QStringList, QString, QString, QByteArray, QString, QString>;

class MainWindowTest : public WindowTest
{
    Q_OBJECT
private slots:
    void theEmptyWindow_beginsAnArchiveOrReadsTheOneThatArrives_data()
    {
        const QByteArray a = archiveOf({"A|A|A|0"}), ab = archiveOf({"A|A|A|0", "B|B|B|0"}),
                         none = "(missing)";
        const QByteArray empty = archiveOf({"|||0"}), two = archiveOf({"A|a|x|1", "B|||2"});
        const QString saved = "Successfully saved!";
        const QString come = "An archive has come into this folder meanwhile, and was read.";
        const QString damaged = "The archive was not begun. spartiti/archivio.js is damaged";
        const QString full = "The archive was not begun. spartiti/archivio.js: ";
        tableOf<Beginning>(
            {{"Save", {{"A"}, "Save", {}, a, "1 A A A", saved}},
             {"Add", {{"A"}, "Add", {}, a, "1 A A A", beginQuestion}},
             {"with gaps", {{"", "A", "", "B"}, "Save", {}, ab, "2 B B B", saved}},
             {"No", {{"", "A"}, "Save", "No", none, "2 A A A", beginQuestion}},
             {"full disk", {{"", "A"}, "Save", "full", none, "2 A A A", full}},
             {"the start", {{}, {}, {}, empty, "1", beginQuestion}},
             {"arrives at the start", {{}, {}, "asks", two, "2 B", beginQuestion}},
             {"arrives at Save", {{"Typed"}, "Save", "asks", two, "3 Typed Typed Typed", come}},
             {"arrives before Save", {{"Typed"}, "Save", "before", two, "3 Typed Typed Typed", come}},
             {"nothing of it yet arrives", {{"", "A"}, "Save", "asks", "", "2 A A A", damaged}}});
    }
    void theEmptyWindow_beginsAnArchiveOrReadsTheOneThatArrives()
    {
        const auto [typed, button, happens, archive, song, told] = tableRow<Beginning>();
        Program program(archiveOf({"A|a|x|1", "B|||2"}), {Answer::No});
        QFile::remove(path);
        program.rooms.form1.reload();
        program.told.clear();
        for (const QString &title : typed) {
            if (&title != &typed.first())
                press(window, "VScroll1", Qt::Key_PageDown);
            for (const QString box : {"Title", "Author", "Tags"})
                type(window, box, title);
        }
        if (happens == "before")
            put(path, archive);
        else
            program.answers = {happens == "No" ? Answer::No : Answer::Yes};
        if (happens == "asks")
            program.meanwhile = [bytes = archive] { put(path, bytes); };
        const FullDisk disk(happens == "full" ? 0 : 1'000'000);
        button.isNull() ? program.rooms.form1.reload() : click(window, button);
        QCOMPARE(program.told.constLast().first(told.size()), told);
        QCOMPARE(contents(path), archive);
        QCOMPARE(shown(), song);
        QCOMPARE(Module1.recTitle[textOf(window, "Text1").toUInt()], textOf(window, "Title"));
        QCOMPARE(hasUnsavedChanges(), !typed.isEmpty() && !happens.isEmpty());
    }

    void browsing_showsEachRecordAndEditsNothing()
    {
        const QString text = QString("beginning ").repeated(40).trimmed();
        const Program program(archiveOf({text + '|' + text + '|' + text + "|1", "A \\\\ in it||y|2"}));
        putPicture("spartiti/1L.jpg", Qt::red);
        putPicture("spartiti/1R.jpg", Qt::red);
        put("spartiti/audio/1.mp3", "");
        press(window, "Title", Qt::Key_PageUp);
        QCOMPARE(shown(), "1 " + text + ' ' + text + ' ' + text);
        auto *title = control<QLineEdit>(window, "Title");
        title->grab(); // what is in sight is known once it is painted
        QCOMPARE(title->cursorPositionAt({1, 15}), 0);
        for (const char *frame : {"Left page", "Right page"})
            QVERIFY(!control<ImageFrame>(window, frame)->picture().isNull());
        QVERIFY(control(window, "Picture1")->isVisible());
        press(window, "VScroll1", Qt::Key_End);
        QCOMPARE(shown(), "3");
        QVERIFY(!control(window, "Picture1")->isVisible());
        QVERIFY(!hasUnsavedChanges());
    }

    void add_opensOneEmptyRecordUpToTheLimit()
    {
        Program program(archiveOf(QStringList(9998, "T|||1")));
        press(window, "Title", Qt::Key_PageUp);
        click(window, "Add");
        QVERIFY(hasUnsavedChanges());
        QCOMPARE(program.boxesOf(window, "Add"), ""); // one is enough
        QCOMPARE(shown() + textOf(window, "Label6"), "9999There are 9998 titles");
        type(window, "Title", "C");
        press(window, "Title", Qt::Key_S, Qt::ControlModifier);
        QCOMPARE(contents(path), archiveOf(QStringList(9998, "T|||1") + QStringList("C|||0")));
        QCOMPARE(textOf(window, "Label6"), "There are 9999 titles");
        QCOMPARE(program.boxesOf(window, "Add"), "The archive is full: it holds 9999 titles.");
    }

    void whatIsTypedBehindTheLastRecord_isTakenByAddAndAskedAbout()
    {
        Program program(archiveOf({"A|a|x|1"}), {Answer::Ok, enterKey});
        press(window, "Title", Qt::Key_PageDown);
        type(window, "Tags", "B");
        click(window, "Save");
        QCOMPARE(contents(path), archiveOf({"A|a|x|1"}));
        windowNamed(window)->close(); // asks, and stays
        QCOMPARE(program.told.size(), 2);
        click(window, "Add");
        click(window, "Save");
        QCOMPARE(contents(path), archiveOf({"A|a|x|1", "||B|0"}));
        QVERIFY(!hasUnsavedChanges());
    }

    void save_failingOrUnwantedChangesNothing()
    {
        const QByteArray before = archiveOf({"A|a|x|1"}), others = archiveOf({"A|a|x|1", "B|||2"});
        Program program(before);
        type(window, "Title", "!");
        clickWithFullDisk(window, "Save");
        QVERIFY(program.told.value(0).startsWith("The archive was not saved; the file is as it was"));
        QCOMPARE(contents(path), before);
        put(path, others);
        program.boxesOf(window, "Save", {enterKey});
        QCOMPARE(contents(path), others);
        QVERIFY(hasUnsavedChanges());
        program.meanwhile = [] { put(path, archiveOf({"C|||3"})); }; // so there is a second question
        program.boxesOf(window, "Save", {Answer::Yes, Answer::Yes});
        QCOMPARE(program.told.size(), 3);
        QCOMPARE(contents(path), archiveOf({"!|a|x|1"}));
        QCOMPARE(program.boxesOf(window, "Save"), "Successfully saved!"); // it is this window's own again
    }

    void reload_isWhole()
    {
        Program program;
        press(window, "Title", Qt::Key_PageDown);
        type(window, "Title", "Typed");
        put(path, archiveOf({"A|a|x|1"}));
        program.rooms.form1.reload();
        QCOMPARE(shown(), "1 A a x");
        press(window, "Title", Qt::Key_PageDown);
        QCOMPARE(shown(), "2");
        QVERIFY(!hasUnsavedChanges());
        put(path, "\"cut");
        program.rooms.form1.reload();
        const QString damaged = program.told.value(0);
        QVERIFY(damaged.startsWith("spartiti/archivio.js is damaged and was not read."));
        const QString told = program.boxesOf(window, "Save");
        QVERIFY(told.startsWith("The archive was not saved") && told.endsWith(damaged));
        QCOMPARE(contents(path), "\"cut");
        put(path, archiveOf({"A|||1", "B|||2", "C|||3"}));
        program.rooms.form1.reload(2);
        QCOMPARE(shown(), "2 B");
        QCOMPARE(program.boxesOf(window, "Save"), "Successfully saved!");
    }

    void songsThatStopTheViewer_areNamedOnce()
    {
        Program program(archiveOf({"AC\\DC|||1", "B|two\nlines|x|2", "C|||3"}));
        QCOMPARE(program.told.value(0).section('\n', 1), "1  AC\\DC\n2  B");
        putArchive({"A\rB|||1", "B||\r|2", "C\rD|||3"});
        program.rooms.form1.reload();
        QCOMPARE(program.told.value(1).section('\n', 1), "3  C D");
    }

    void whatIsHidden_comesByItsKeyOrEntry()
    {
        const Program program;
        click(window, "Left");
        windowNamed("Left page")->showMinimized();
        click(window, "Left");
        QVERIFY(!windowNamed("Left page")->isMinimized());
        QVERIFY(!control(window, "SALVA CSV")->isVisible());
        press(window, "Title", Qt::Key_E, Qt::ControlModifier | Qt::ShiftModifier);
        click(window, "SALVA CSV");
        QVERIFY(contents("spartiti/ARCHIVIO.CSV").startsWith("\"1\","));
    }

    void menus_areReachedByMouseAndKeysAlsoAfterAReload()
    {
        Program program;
        program.rooms.form1.reload();
        type(window, "Title", "X");
        press(window, "Title", Qt::Key_E, Qt::AltModifier);
        for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Return})
            QTest::keyClick(QApplication::activePopupWidget(), key);
        QCOMPARE(shown(), "3 Three");
        chooseMenu("Redo title of 3");
        QCOMPARE(shown(), "3 X");
        chooseByRightClick(control(window, "Title"), "Undo title of 3");
        QCOMPARE(shown(), "3 Three");
    }
};

QTEST_MAIN(MainWindowTest)
#include "main_window_test.moc"

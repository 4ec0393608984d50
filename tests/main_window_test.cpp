#include "archive/archive_operations.h"
#include "controls/image_frame.h"
#include "support/table.h"
#include "support/windows.h"

static const QString window = "Tessaline 5.0";
static const QString path = "spartiti/archivio.js";
static const QString beginQuestion = "There are no titles in the archive of this folder:";

// What the window shows of the pages and the recording.
static QString pages()
{
    QStringList shown;
    for (const auto &[frame, name] : {std::pair("Left page", "left"), {"Right page", "right"}}) {
        if (!control<ImageFrame>(window, frame)->picture().isNull())
            shown += name;
    }
    return (shown + QStringList(control(window, "Picture1")->isVisible() ? "recording" : ""))
        .join(' ')
        .trimmed();
}

// The song on display: "number title author tags".
static QString shown()
{
    QStringList texts;
    for (const QString box : {"Text1", "Title", "Author", "Tags"})
        texts += textOf(window, box);
    return texts.join(' ').trimmed();
}

// The program in a folder whose archive is gone, where "Do you want to begin one?" was answered by No.
struct EmptyProgram : Program {
    EmptyProgram()
        : Program(archiveOf({"A|a|x|1", "B|||2"}), {Answer::No})
    {
        QFile::remove(path);
        rooms.form1.reload();
        told.clear();
    }
};

// A button, clicked after "Typed" was typed, or null at the start; the archive that arrives, and whether it
// does so while the question stands; the song shown, and how the last message begins.
using Arrival = std::tuple<QString, QByteArray, bool, QString, QString>;
// A button, what is typed before, one title below the other, the file, the song shown, the message.
using Beginning = std::tuple<QString, QStringList, QByteArray, QString, QString>;

class MainWindowTest : public WindowTest
{
    Q_OBJECT
private slots:
    void anArchiveThatArrives_isReadNotReplaced_data()
    {
        const QByteArray two = archiveOf({"A|a|x|1", "B|||2"});
        const QString come = "An archive has come into this folder meanwhile, and was read.";
        const QString damaged = "The archive was not begun. spartiti/archivio.js is damaged";
        tableOf<Arrival>({{"at the start", {{}, two, true, "2 B", beginQuestion}},
                          {"at the start, nothing of it yet", {{}, "", true, "", damaged}},
                          {"at Save", {"Save", two, true, "3 Typed", come}},
                          {"before Save", {"Save", two, false, "3 Typed", come}},
                          {"at Save, half of it", {"Save", two.first(40), true, "1 Typed", damaged}},
                          {"at Add", {"Add", two, true, "3 Typed", come}}});
    }
    void anArchiveThatArrives_isReadNotReplaced()
    {
        const auto [button, archive, isWhileAsked, record, told] = tableRow<Arrival>();
        EmptyProgram program;
        program.answers = isWhileAsked ? QList{Answer::Yes, Answer::Ok} : QList{Answer::Ok};
        if (isWhileAsked)
            program.meanwhile = [bytes = archive] { put(path, bytes); };
        if (button.isNull()) {
            program.rooms.form1.reload();
        } else {
            program.rooms.form1.showSong(1);
            type(window, "Title", "Typed");
            if (!isWhileAsked)
                put(path, archive);
            click(window, button);
        }
        QCOMPARE(shown(), record);
        QCOMPARE(contents(path), archive);
        QCOMPARE(hasUnsavedChanges(), !button.isNull());
        QCOMPARE(program.told.constLast().first(told.size()), told);
    }

    void theEmptyWindow_beginsWithWhatWasTyped_data()
    {
        const QString saved = "Successfully saved!";
        const QByteArray a = archiveOf({"A|||0"}), ab = archiveOf({"A|||0", "B|||0"});
        tableOf<Beginning>({{"Save", {"Save", {"A"}, a, "1 A", saved}},
                            {"Add", {"Add", {"A"}, a, "1 A", ""}},
                            {"nothing typed", {"Save", {}, archiveOf({"|||0"}), "1", saved}},
                            {"with gaps", {"Save", {"", "A", "", "B"}, ab, "2 B", saved}}});
    }
    void theEmptyWindow_beginsWithWhatWasTyped()
    {
        const auto [button, typed, archive, record, told] = tableRow<Beginning>();
        EmptyProgram program;
        for (const QString &title : typed) {
            if (&title != &typed.first())
                press(window, "VScroll1", Qt::Key_PageDown);
            type(window, "Title", title);
        }
        QCOMPARE(program.boxesOf(window, button, {Answer::No}).section('\n', 0, 0), beginQuestion);
        QCOMPARE(contents(path), "(missing)");
        program.boxesOf(window, button, {Answer::Yes});
        QCOMPARE(program.told.value(1), told);
        QCOMPARE(contents(path), archive);
        QCOMPARE(shown(), record);
        QVERIFY(!hasUnsavedChanges());
    }

    void beginning_failingKeepsWhatWasTyped()
    {
        EmptyProgram program;
        program.answers = {Answer::Yes};
        press(window, "VScroll1", Qt::Key_PageDown);
        type(window, "Title", "Typed");
        clickWithFullDisk(window, "Save");
        QVERIFY(program.told.value(1).startsWith("The archive was not begun. spartiti/archivio.js: "));
        QCOMPARE(Module1.recTitle[2], "Typed");
        QCOMPARE(Module1.recCount, 0);
    }

    void browsing_showsEachRecordAndEditsNothing()
    {
        const QString text = QString("beginning ").repeated(40).trimmed();
        const Program program(archiveOf({text + '|' + text + '|' + text + "|1", "A \\\\ in it||y|2"}));
        putPicture("spartiti/1L.jpg", Qt::red);
        put("spartiti/1R.jpg", "no picture");
        put("spartiti/audio/1.mp3", "");
        QCOMPARE(pages(), "");
        press(window, "Title", Qt::Key_PageUp);
        QCOMPARE(shown(), "1 " + text + ' ' + text + ' ' + text);
        for (const QString name : {"Title", "Author", "Tags"}) {
            auto *box = control<QLineEdit>(window, name);
            box->grab(); // what is in sight is known once it is painted
            QCOMPARE(box->cursorPositionAt({1, 15}), 0);
        }
        QCOMPARE(pages(), "left recording");
        putPicture("spartiti/3R.jpg", Qt::red);
        press(window, "VScroll1", Qt::Key_End);
        QCOMPARE(shown() + pages(), "3right");
        QVERIFY(!hasUnsavedChanges());
    }

    void add_opensOneEmptyRecordUpToTheLimit()
    {
        Program program(archiveOf(QStringList(9998, "T|||1")));
        press(window, "Title", Qt::Key_PageUp);
        click(window, "Add");
        click(window, "Add"); // one is enough
        QCOMPARE(shown() + textOf(window, "Label6"), "9999There are 9998 titles");
        type(window, "Title", "C");
        press(window, "Title", Qt::Key_S, Qt::ControlModifier);
        QCOMPARE(contents(path), archiveOf(QStringList(9998, "T|||1") + QStringList("C|||0")));
        QCOMPARE(textOf(window, "Label6"), "There are 9999 titles");
        QCOMPARE(program.boxesOf(window, "Add"), "The archive is full: it holds 9999 titles.");
    }

    void add_takesWhatWasTypedBehindTheLastRecord()
    {
        const Program program(archiveOf({"A|a|x|1"}), {Answer::Ok, enterKey});
        press(window, "Title", Qt::Key_PageDown);
        type(window, "Title", "B");
        click(window, "Save");
        QCOMPARE(contents(path), archiveOf({"A|a|x|1"}));
        windowNamed(window)->close(); // asks, and stays
        QCOMPARE(program.told.size(), 2);
        click(window, "Add");
        click(window, "Save");
        QCOMPARE(contents(path), archiveOf({"A|a|x|1", "B|||0"}));
    }

    void save_failingChangesNothing()
    {
        const Program program(archiveOf({"A|a|x|1"}));
        type(window, "Title", "!");
        clickWithFullDisk(window, "Save");
        QVERIFY(program.told.value(0).startsWith("The archive was not saved; the file is as it was"));
        QCOMPARE(contents(path), archiveOf({"A|a|x|1"}));
        QVERIFY(hasUnsavedChanges());
        click(window, "Save");
        QCOMPARE(contents(path), archiveOf({"!|a|x|1"}));
    }

    void save_asksBeforeItUndoesWhatAnotherProgramDid()
    {
        const QByteArray others = archiveOf({"A|a|x|1", "B|||2"});
        Program program(archiveOf({"A|a|x|1"}));
        type(window, "Title", "!");
        put(path, others);
        program.boxesOf(window, "Save", {enterKey});
        QCOMPARE(contents(path), others);
        program.meanwhile = [] { put(path, archiveOf({"C|||3"})); }; // so there is a second question
        program.boxesOf(window, "Save", {Answer::Yes, Answer::Yes});
        QCOMPARE(program.told.size(), 3);
        QCOMPARE(contents(path), archiveOf({"!|a|x|1"}));
        QCOMPARE(program.boxesOf(window, "Save"), "Successfully saved!"); // it is this window's own again
    }

    void save_refusesToReplaceADamagedArchive()
    {
        Program program("\"cut");
        const QString damaged = program.told.value(0);
        QVERIFY(damaged.startsWith("spartiti/archivio.js is damaged and was not read."));
        const QString told = program.boxesOf(window, "Save");
        QVERIFY(told.startsWith("The archive was not saved") && told.endsWith(damaged));
        QCOMPARE(program.boxesOf(window, "Add"), "");
        QCOMPARE(contents(path), "\"cut");
    }

    void anArchive_isBegunAtTheStartAndExported()
    {
        const Program program({}, {Answer::Yes});
        QCOMPARE(contents(path), archiveOf({"|||0"}));
        QVERIFY(!control(window, "SALVA CSV")->isVisible());
        press(window, "Title", Qt::Key_E, Qt::ControlModifier | Qt::ShiftModifier);
        click(window, "SALVA CSV");
        QVERIFY(contents("spartiti/ARCHIVIO.CSV").startsWith("\"1\","));
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
        QVERIFY(!program.rooms.form1.save());
        put(path, archiveOf({"A|||1", "B|||2", "C|||3"}));
        program.rooms.form1.reload(2);
        QCOMPARE(shown(), "2 B");
        QVERIFY(program.rooms.form1.save());
    }

    void songsThatStopTheViewer_areNamedOnce()
    {
        Program program(archiveOf({"AC\\DC|||1", "B|two\nlines|x|2", "C|c|\r|3", "D|||\\"}));
        QCOMPARE(program.told.value(0).section('\n', 1), "1  AC\\DC\n2  B\n3  C");
        put(path, archiveOf({"AC\\DC|||1", "B\\|||2", "C|||3", "D\\|||4"}));
        program.rooms.form1.reload(1);
        QCOMPARE(program.told.value(1).section('\n', 1), "4  D\\");
        type(window, "Title", "AC DC");
        click(window, "Save");
        QCOMPARE(unviewableRecords(readArchive(contents(path), ownArchive)), (QList<int>{2, 4}));
        for (const char *title : {"A\r|||1", "A\n|||1"})
            QCOMPARE(unviewableRecords(readArchive(archiveOf({title}), ownArchive)), QList<int>{1});
    }

    void aMinimisedWindow_comesBack()
    {
        const Program program;
        click(window, "Left");
        windowNamed("Left page")->showMinimized();
        click(window, "Left");
        QVERIFY(!windowNamed("Left page")->isMinimized());
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
        chooseByRightClick(control(window, "Title"), "Undo title of 3");
        QCOMPARE(shown(), "3 Three");
        chooseByRightClick(control(window, "Title"), "Redo title of 3");
        QCOMPARE(shown(), "3 X");
    }

    void theCloseBox_asksOnlyWhereSomethingWasChanged()
    {
        const Program program(archiveOf({"One|||0"}), {Answer::Yes});
        QTimer::singleShot(0, [] { windowNamed(window)->close(); });
        QCOMPARE(QApplication::exec(), 0);
        QCOMPARE(program.told, QStringList());
    }
};

QTEST_MAIN(MainWindowTest)
#include "main_window_test.moc"

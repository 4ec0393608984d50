#include "archive/archive_operations.h"
#include "controls/image_frame.h"
#include "controls/scroll_bar.h"
#include "support/table.h"
#include "support/windows.h"

#include <QImage>

static const QString window = "Tessaline 5.0";
static const QString path = "spartiti/archivio.js";
static const QString beginQuestion = "There are no titles in the archive of this folder:";

static bool hasPicture(const QString &frame)
{
    return !control<ImageFrame>(window, frame)->picture().isNull();
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

// The archive, the song shown, how far one can browse, the label, and the first line told.
using Start = std::tuple<QByteArray, QString, int, QString, QString>;
// A button, clicked after "Typed" was typed, or null at the start; the archive that arrives, and whether it
// does so while the question stands; the song shown, and how the last message begins.
using Arrival = std::tuple<QString, QByteArray, bool, QString, QString>;
// A button, what is typed before, one title below the other, the answer, the file, the song shown, the
// message.
using Beginning = std::tuple<QString, QStringList, Answer, QByteArray, QString, QString>;

class MainWindowTest : public WindowTest
{
    Q_OBJECT
private slots:
    void start_standsWhereItShould_data()
    {
        tableOf<Start>({{"two titles", {archiveOf({"A|||1", "B|||2"}), "2 B", 3, "There are 2 titles", ""}},
                        {"one title", {archiveOf({"A|||1"}), "1 A", 2, "There are 1 titles", ""}},
                        {"no titles", {archiveOf({}), "1", 1, "There are 0 titles", beginQuestion}},
                        {"no archive", {{}, "", 9999, "", beginQuestion}}});
    }
    void start_standsWhereItShould()
    {
        const auto [archive, record, reach, label, told] = tableRow<Start>();
        const Program program(archive);
        QCOMPARE(shown(), record);
        QCOMPARE(control<ScrollBar>(window, "Record")->maximum(), reach);
        QCOMPARE(textOf(window, "Label6"), label);
        QCOMPARE(program.told.join("").section('\n', 0, 0), told);
        QCOMPARE(Module1.pageRecord, record.section(' ', 0, 0).toInt());
        QCOMPARE(contents(path), archive.isNull() ? QByteArray("(missing)") : archive);
    }

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
        tableOf<Beginning>({{"Save", {"Save", {"A"}, Answer::Yes, a, "1 A", saved}},
                            {"Add", {"Add", {"A"}, Answer::Yes, a, "1 A", ""}},
                            {"No", {"Save", {"A"}, Answer::No, "(missing)", "A", ""}},
                            {"nothing typed", {"Save", {}, Answer::Yes, archiveOf({"|||0"}), "1", saved}},
                            {"with gaps", {"Save", {"", "A", "", "B"}, Answer::Yes, ab, "2 B", saved}}});
    }
    void theEmptyWindow_beginsWithWhatWasTyped()
    {
        const auto [button, typed, answer, archive, record, told] = tableRow<Beginning>();
        EmptyProgram program;
        program.answers = {answer, Answer::Ok};
        for (const QString &title : typed) {
            if (&title != &typed.first())
                press(window, "VScroll1", Qt::Key_PageDown);
            type(window, "Title", title);
        }
        click(window, button);
        QCOMPARE(program.told.value(0).section('\n', 0, 0), beginQuestion);
        QCOMPARE(program.told.value(1), told);
        QCOMPARE(contents(path), archive);
        QCOMPARE(shown(), record);
        QCOMPARE(hasUnsavedChanges(), answer == Answer::No);
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
        const Program program(archiveOf({"A|a|x|1", "A title with \\\\ in it||y|2"}));
        for (const char *page : {"1L", "3R"})
            QVERIFY(QImage(200, 300, QImage::Format_RGB32).save(QString("spartiti/%1.jpg").arg(page)));
        put("spartiti/1R.jpg", "no picture");
        put("spartiti/audio/1.mp3", "");
        QVERIFY(!hasPicture("Left page"));
        QVERIFY(!control(window, "Picture1")->isVisible());
        press(window, "Title", Qt::Key_PageUp);
        QCOMPARE(shown(), "1 A a x");
        QVERIFY(hasPicture("Left page"));
        QVERIFY(!hasPicture("Right page"));
        QVERIFY(control(window, "Picture1")->isVisible());
        press(window, "VScroll1", Qt::Key_End);
        QCOMPARE(shown(), "3");
        QVERIFY(hasPicture("Right page"));
        QVERIFY(!hasUnsavedChanges());
    }

    void browsing_showsTheBeginningOfALongText()
    {
        const QString text = QString("beginning ").repeated(40);
        const Program program(archiveOf({text + '|' + text + '|' + text + "|1", "B|||2"}));
        press(window, "Title", Qt::Key_PageUp);
        for (const QString name : {"Title", "Author", "Tags"}) {
            auto *box = control<QLineEdit>(window, name);
            box->grab(); // what is in sight is known once it is painted
            QCOMPARE(box->cursorPositionAt({1, 15}), 0);
        }
    }

    void add_opensOneEmptyRecordUpToTheLimit()
    {
        const Program program(archiveOf(QStringList(9998, "T|||1")));
        press(window, "Title", Qt::Key_PageUp);
        click(window, "Add");
        click(window, "Add"); // one is enough
        QCOMPARE(shown(), "9999");
        QCOMPARE(textOf(window, "Label6"), "There are 9998 titles");
        type(window, "Title", "C");
        press(window, "Title", Qt::Key_S, Qt::ControlModifier);
        QCOMPARE(contents(path), archiveOf(QStringList(9998, "T|||1") + QStringList("C|||0")));
        QCOMPARE(textOf(window, "Label6"), "There are 9999 titles");
        click(window, "Add");
        QCOMPARE(program.told.value(1), "The archive is full: it holds 9999 titles.");
    }

    void add_takesWhatWasTypedBehindTheLastRecord()
    {
        const Program program(archiveOf({"A|a|x|1"}));
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
        QCOMPARE(Module1.recTitle[1], "!");
        QVERIFY(hasUnsavedChanges());
        click(window, "Save");
        QCOMPARE(contents(path), archiveOf({"!|a|x|1"}));
    }

    void save_asksBeforeItUndoesWhatAnotherProgramDid()
    {
        const QByteArray others = archiveOf({"A|a|x|1", "B|||2"});
        const QByteArray later = archiveOf({"A|a|x|1", "B|||2", "C|||3"});
        Program program(archiveOf({"A|a|x|1"}), {enterKey, Answer::Yes, Answer::Yes, Answer::Ok});
        type(window, "Title", "!");
        put(path, others);
        click(window, "Save");
        QCOMPARE(contents(path), others);
        program.meanwhile = [&] { put(path, later); }; // so there is a second question
        click(window, "Save");
        click(window, "Save"); // it is this window's own file again: no question
        QCOMPARE(contents(path), archiveOf({"!|a|x|1"}));
        QCOMPARE(program.told.count("Successfully saved!"), 2);
        QCOMPARE(program.told.size(), 5);
    }

    void save_refusesToReplaceADamagedArchive()
    {
        const Program program("\"cut");
        click(window, "Save");
        QVERIFY(program.told.value(0).startsWith("spartiti/archivio.js is damaged and was not read."));
        QVERIFY(program.told.value(1).startsWith("The archive was not saved"));
        QVERIFY(program.told.value(1).endsWith(program.told[0]));
        QCOMPARE(contents(path), "\"cut");
        click(window, "Add");
        QCOMPARE(program.told.size(), 2);
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
        program.rooms.form1.showSong(1);
        QCOMPARE(shown(), "1 A");
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
        QCOMPARE(shown(), "3 X");
    }

    void leaving_asksOnlyAtTheCloseBox_data() { rowsOf({"nothing changed", "Exit", "close box"}); }
    void leaving_asksOnlyAtTheCloseBox()
    {
        const QByteArray way = QTest::currentDataTag();
        Program program(archiveOf({"A|a|x|1"}), {enterKey, Answer::Yes});
        if (way != "nothing changed")
            type(window, "Tags", "z");
        QTimer::singleShot(0, &program.rooms.form1, [&] {
            if (way == "Exit")
                return chooseMenu("Exit");
            for (int i = 0; i < 2 && windowNamed(window); i += 1)
                windowNamed(window)->close(); // Enter stays
        });
        QCOMPARE(QApplication::exec(), 0);
        QCOMPARE(program.told.size(), way == "close box" ? 2 : 0);
        QCOMPARE(contents(path), archiveOf({"A|a|x|1"}));
    }
};

QTEST_MAIN(MainWindowTest)
#include "main_window_test.moc"

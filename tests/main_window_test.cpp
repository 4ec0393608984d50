#include "archive/archive_operations.h"
#include "controls/image_frame.h"
#include "controls/scroll_bar.h"
#include "support/table.h"
#include "support/windows.h"

#include <QApplication>
#include <QImage>
#include <QLineEdit>

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

struct Start {
    QByteArray archive;
    QString record;
    int reach = 0;
    QString label;
    QString told; // the first line
};

struct Arrival {
    QString button; // clicked after "Typed" was typed; null at the start
    QByteArray archive;
    bool whileAsked = true; // it arrives while the question stands, else before
    QString record;
    QString told; // the beginning of the last message
};

struct Beginning {
    QString button;
    QStringList typed; // one below the other
    QByteArray archive;
    QString record;
    QString told;
    Answer answer = Answer::Yes;
};

struct Leaving {
    bool isEdited = false;
    QString entry; // of the menu; null is the close box
    int questions = 0;
};

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
        const auto row = tableRow<Start>();
        const Program program(row.archive);
        QCOMPARE(shown(), row.record);
        QCOMPARE(control<ScrollBar>(window, "Record")->maximum(), row.reach);
        QCOMPARE(textOf(window, "Label6"), row.label);
        QCOMPARE(program.told.join("").section('\n', 0, 0), row.told);
        QCOMPARE(Module1.pageRecord, row.record.section(' ', 0, 0).toInt());
        QCOMPARE(contents(path), row.archive.isNull() ? QByteArray("(missing)") : row.archive);
    }

    void start_beginsNothingOverAnUnreachableArchive()
    {
        Program program;
        QVERIFY(QFile::remove(path) && QFile::link("archivio.js", path));
        program.rooms.form1.reload();
        QVERIFY(program.told.join("").startsWith("spartiti/archivio.js cannot be read"));
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
        const auto row = tableRow<Arrival>();
        EmptyProgram program;
        program.answers = row.whileAsked ? QList{Answer::Yes, Answer::Ok} : QList{Answer::Ok};
        if (row.whileAsked)
            program.meanwhile = [&] { put(path, row.archive); };
        if (row.button.isNull()) {
            program.rooms.form1.reload();
        } else {
            program.rooms.form1.showSong(1);
            type(window, "Title", "Typed");
            if (!row.whileAsked)
                put(path, row.archive);
            click(window, row.button);
        }
        QCOMPARE(shown(), row.record);
        QCOMPARE(contents(path), row.archive);
        QCOMPARE(hasUnsavedChanges(), !row.button.isNull());
        QCOMPARE(program.told.constLast().first(row.told.size()), row.told);
    }

    void theEmptyWindow_beginsWithWhatWasTyped_data()
    {
        const QString saved = "Successfully saved!";
        const QByteArray a = archiveOf({"A|||0"});
        tableOf<Beginning>(
            {{"Save", {"Save", {"A"}, a, "1 A", saved}},
             {"Add", {"Add", {"A"}, a, "1 A", ""}},
             {"No", {"Save", {"A"}, "(missing)", "A", "", Answer::No}},
             {"nothing typed", {"Save", {}, archiveOf({"|||0"}), "1", saved}},
             {"with gaps", {"Save", {"", "A", "", "B"}, archiveOf({"A|||0", "B|||0"}), "2 B", saved}}});
    }
    void theEmptyWindow_beginsWithWhatWasTyped()
    {
        const auto row = tableRow<Beginning>();
        EmptyProgram program;
        program.answers = {row.answer, Answer::Ok};
        for (const QString &title : row.typed) {
            if (&title != &row.typed.first())
                press(window, "VScroll1", Qt::Key_PageDown);
            type(window, "Title", title);
        }
        click(window, row.button);
        QCOMPARE(program.told.value(0).section('\n', 0, 0), beginQuestion);
        QCOMPARE(program.told.value(1), row.told);
        QCOMPARE(contents(path), row.archive);
        QCOMPARE(shown(), row.record);
        QCOMPARE(hasUnsavedChanges(), row.answer == Answer::No);
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

    void anArchive_isBegunSavedAndExported()
    {
        const Program program({}, {Answer::Yes, Answer::Ok});
        QCOMPARE(contents(path), archiveOf({"|||0"}));
        type(window, "Title", "For Elise, \"so gut\"");
        click(window, "Save");
        QCOMPARE(contents(path), archiveOf({"For Elise, 'so gut'|||0"}));
        QCOMPARE(program.told.value(1), "Successfully saved!");
        click(window, "Add");
        QVERIFY(!control(window, "SALVA CSV")->isVisible());
        press(window, "Title", Qt::Key_E, Qt::ControlModifier | Qt::ShiftModifier);
        click(window, "SALVA CSV");
        QCOMPARE(contents("spartiti/ARCHIVIO.CSV"),
                 "\"1\",\"For Elise, 'so gut'\",\"\",\"\",\"0\",\"0\",\"0\",\"0\"\r\n"
                 "\"\",\"\",\"\",\"\",\"0\",\"0\",\"0\",\"0\"\r\n");
    }

    void undo_goesToTheSongAndShowsItAsItWas()
    {
        Program program(archiveOf({"One|A|t|0", "Two|B|u|0"}));
        const auto undo = [](Qt::KeyboardModifiers more = {}) {
            press(window, "Title", Qt::Key_Z, Qt::ControlModifier | more);
        };
        type(window, "Title", "Zwei");
        type(window, "Author", "C");
        press(window, "Title", Qt::Key_PageUp);
        type(window, "Tags", "x y");
        QCOMPARE(program.rooms.edits.stack().undoText(), "tags of 1");
        undo();
        QCOMPARE(shown(), "1 One A t");
        undo();
        QCOMPARE(shown(), "2 Zwei B u");
        click(window, "Save");
        undo(); // what is saved can be undone
        QCOMPARE(shown(), "2 Two B u");
        QVERIFY(Module1.archiveChanged);
        undo(Qt::ShiftModifier);
        QCOMPARE(shown(), "2 Zwei B u");
        QVERIFY(!Module1.archiveChanged);
        press(window, "Tags", Qt::Key_Y, Qt::ControlModifier);
        press(window, "Tags", Qt::Key_Y, Qt::ControlModifier);
        QCOMPARE(shown(), "1 One A x y");
        undo();
        undo();
        undo();
        click(window, "Save");
        QCOMPARE(contents(path), archiveOf({"One|A|t|0", "Two|B|u|0"}));
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
        Program program(archiveOf({"AC\\DC|||1", "B|two\nlines|x|2", "C|c|\r|3", "D|||4"}));
        QCOMPARE(program.told.value(0).section('\n', 1), "1  AC\\DC\n2  B\n3  C");
        put(path, archiveOf({"AC\\DC|||1", "B\\|||2", "C|||3", "D\\|||4"}));
        program.rooms.form1.reload(1);
        QCOMPARE(program.told.value(1).section('\n', 1), "4  D\\");
        type(window, "Title", "AC DC");
        click(window, "Save");
        QCOMPARE(unviewableRecords(readArchive(contents(path), ownArchive)), (QList<int>{2, 4}));
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

    void leaving_asksOnlyAtTheCloseBox_data()
    {
        tableOf<Leaving>({{"nothing changed", {false, {}, 0}},
                          {"changed", {true, {}, 2}},
                          {"changed, by Exit", {true, "Exit", 0}}});
    }
    void leaving_asksOnlyAtTheCloseBox()
    {
        const auto row = tableRow<Leaving>();
        Program program(archiveOf({"A|a|x|1"}), {enterKey, Answer::Yes});
        if (row.isEdited)
            type(window, "Tags", "z");
        QTimer::singleShot(0, &program.rooms.form1, [&] {
            if (!row.entry.isNull())
                return chooseMenu(row.entry);
            for (int i = 0; i < 2 && windowNamed(window); i += 1)
                windowNamed(window)->close(); // Enter stays
        });
        QCOMPARE(QApplication::exec(), 0);
        QCOMPARE(program.told.size(), row.questions);
        QCOMPARE(contents(path), archiveOf({"A|a|x|1"}));
    }
};

QTEST_MAIN(MainWindowTest)
#include "main_window_test.moc"

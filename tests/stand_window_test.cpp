// The windows "Check the archive" and "Copy to the stand".
#include "support/songs_window.h"

#include <QClipboard>
#include <QComboBox>

static const QString check = "Check the archive";
static const QString stand = "Copy to the stand";
static const QString table = "What is to be done";

static QString state(const QString &window)
{
    return textOf(window, "state");
}

// Pastes the folder into the box for choosing one, and presses Enter.
static void chooseFolder(const QString &folder)
{
    QGuiApplication::clipboard()->setText(QDir::current().filePath(folder));
    songs::inDialog([] {
        songs::key(Qt::Key_A, Qt::ControlModifier);
        songs::key(Qt::Key_V, Qt::ControlModifier);
    });
    click(stand, "Choose a folder…");
}

class StandWindowTest : public WindowTest
{
    Q_OBJECT
private slots:
    void goTo_landsWhereItIs()
    {
        const Program program(archiveOf({"|||", "Song|||", "Song|||", "Four|||"}));
        putPicture("spartiti/m.jpg", Qt::white);
        putCategories();
        put("spartiti/2L.jpg", "no picture");
        put("spartiti/playlist.js", fileOf("playlist", "\"Set\",\"9,#\",\r\n"));
        type("Form1", "Title", "New");
        chooseMenu("Check the archive…");
        QVERIFY(state(check).endsWith("What you have changed and not saved was not looked at."));
        clickRow(check, "Findings", 2);
        click(check, "Go to");
        QCOMPARE(textOf("Form1", "Text1"), "2");
        clickRow(check, "Findings", 0);
        click(check, "Go to");
        QCOMPARE(control<QComboBox>("Songs", "Show")->currentText(), "Without title");
        clickRow(check, "Findings", 1);
        press(check, "Findings", Qt::Key_Return);
        QCOMPARE(control<QComboBox>("Songs", "Show")->currentText(), "Same title as another");
        clickRow(check, "Findings", 3);
        click(check, "Go to");
        QVERIFY(windowNamed("Playlist Manager"));
    }

    void mend_deletesOnlyAfterAYesAndTellsWhatFailed()
    {
        Program program;
        put("spartiti/midi.js.Xa81bQ", "x");
        putPicture("page.jpg", Qt::white);
        put("spartiti/02L.jpg", contents("page.jpg"));
        chooseMenu("Check the archive…");
        QCOMPARE(state(check), "4 findings.");
        click(check, "Mend");
        QCOMPARE(state(check), "There are names of categories now. 3 findings.");
        QCOMPARE(Module1.categoryName[33], "Other");
        QCOMPARE(shownRows(check, "Findings").join('|'),
                 "No empty sheet m.jpg|Wrong name: 02L.jpg|Left over: midi.js.Xa81bQ");
        press(check, "Findings", Qt::Key_A, Qt::ControlModifier);
        put("spartiti/2L.jpg", contents("page.jpg"));
        program.boxesOf(check, "Mend", {enterKey});
        QVERIFY(program.told.value(0).contains("midi.js.Xa81bQ"));
        QVERIFY(program.told.value(1).startsWith(
            "This was not mended, and is as it was before.\nspartiti/2L.jpg"));
        QCOMPARE(state(check), "There is a white empty sheet now. 2 findings.");
        QFile::remove("spartiti/2L.jpg");
        press(check, "Findings", Qt::Key_F5);
        press(check, "Findings", Qt::Key_A, Qt::ControlModifier);
        program.boxesOf(check, "Mend", {Answer::Yes});
        QVERIFY(state(check).contains("midi.js.Xa81bQ is gone. Nothing is wrong"));
    }

    void archive_isCarriedThereAfterTheQuestions()
    {
        Program program;
        put("spartiti/2L.jpg", "page");
        QDir().mkdir("stand");
        chooseMenu("Copy to the stand…");
        QVERIFY(state(stand).startsWith("Choose the folder of the stand"));
        program.answers = {enterKey};
        chooseFolder("stand");
        QVERIFY(program.told.value(0).startsWith("In this folder there is no start page (*.html)"));
        put("stand/index.html", {});
        put("stand/spartiti/archivio.js", archiveOf({"ONE|||", "Aria|||", "|||", "Fourth|||"}));
        chooseFolder("stand");
        QCOMPARE(program.told.size(), 1);
        QVERIFY(state(stand).startsWith("1 file is new, 1 changed, 0 the same. There is room: "));
        QCOMPARE(cell(stand, table, 0, 0) + ' ' + cell(stand, table, 0, 2), "New 2 Two");
        QVERIFY(program.boxesOf(stand, "Copy", {enterKey})
                    .endsWith("want that?\n2 there: Aria, here: Two\n4 there: Fourth, here: none"));
        QCOMPARE(contents("stand/spartiti/2L.jpg"), "(missing)");
        program.boxesOf(stand, "Copy", {Answer::Yes});
        QCOMPARE(program.told.last(),
                 "3 songs, 0 playlists: all of it is on the stand, read back and compared. You can take it.");
        QCOMPARE(contents("stand/spartiti/2L.jpg"), "page");
        QVERIFY(state(stand).startsWith("All of it is on the stand already: 2 files."));
        put("stand/spartiti/9L.jpg", "x");
        press(stand, "Copy", Qt::Key_Escape);
        chooseMenu("Copy to the stand…"); // which knows the folder still
        QCOMPARE(cell(stand, table, 0, 0), "Only on the stand");
    }

    void whatDoesNotComeAlong_isSaid()
    {
        Program program;
        put("stand/index.html", {});
        putLink("gone", "spartiti/1R.jpg");
        type("Form1", "Title", "New");
        chooseMenu("Copy to the stand…");
        chooseFolder("stand");
        QVERIFY(state(stand).endsWith("What you have changed and not saved will not come along."));
        QVERIFY(program.boxesOf(stand, "Copy", {enterKey}).startsWith("There are changes that have not"));
        QVERIFY(!QFile::exists("stand/spartiti"));
        QVERIFY(
            program.boxesOf(stand, "Copy", {Answer::Yes})
                .endsWith("You can take it.\nThese files were not copied:\n1R.jpg: it is no ordinary file"));
        put("spartiti/archivio.js", "damaged");
        click(stand, "Look again");
        QVERIFY(state(stand).startsWith("Nothing can be copied. spartiti/archivio.js"));
    }
};

QTEST_MAIN(StandWindowTest)
#include "stand_window_test.moc"

#include "support/windows.h"

#include <QComboBox>

static const QString window = "Check the archive";

static QString state()
{
    return textOf(window, "state");
}

static QStringList findings()
{
    return shownRows(window, "Findings");
}

class CheckWindowTest : public WindowTest
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
        QVERIFY(state().endsWith("What you have changed and not saved was not looked at."));
        QCOMPARE(cell(window, "Findings", 2, 1), "2 Song");
        clickRow(window, "Findings", 2);
        click(window, "Go to");
        QCOMPARE(textOf("Form1", "Text1"), "2");
        clickRow(window, "Findings", 0);
        click(window, "Go to");
        QCOMPARE(control<QComboBox>("Songs", "Show")->currentText(), "Without title");
        clickRow(window, "Findings", 1);
        press(window, "Findings", Qt::Key_Return);
        QCOMPARE(control<QComboBox>("Songs", "Show")->currentText(), "Same title as another");
        clickRow(window, "Findings", 3);
        click(window, "Go to");
        QVERIFY(windowNamed("Playlist Manager"));
    }

    void mend_deletesOnlyAfterAYesAndTellsWhatFailed()
    {
        Program program;
        put("spartiti/midi.js.Xa81bQ", "x");
        putPicture("page.jpg", Qt::white);
        put("spartiti/02L.jpg", contents("page.jpg"));
        chooseMenu("Check the archive…");
        QCOMPARE(state(), "4 findings.");
        click(window, "Mend");
        QCOMPARE(state(), "There are names of categories now. 3 findings.");
        QCOMPARE(Module1.categoryName[33], "Other");
        QCOMPARE(findings().join('|'), "No empty sheet m.jpg|Wrong name: 02L.jpg|Left over: midi.js.Xa81bQ");
        press(window, "Findings", Qt::Key_A, Qt::ControlModifier);
        put("spartiti/2L.jpg", contents("page.jpg"));
        program.boxesOf(window, "Mend", {enterKey});
        QVERIFY(program.told.value(0).contains("midi.js.Xa81bQ"));
        QVERIFY(program.told.value(1).startsWith(
            "This was not mended, and is as it was before.\nspartiti/2L.jpg"));
        QCOMPARE(state(), "There is a white empty sheet now. 2 findings.");
        QFile::remove("spartiti/2L.jpg");
        press(window, "Findings", Qt::Key_F5);
        press(window, "Findings", Qt::Key_A, Qt::ControlModifier);
        program.boxesOf(window, "Mend", {Answer::Yes});
        QCOMPARE(
            state(),
            "02L.jpg is called 2L.jpg now. midi.js.Xa81bQ is gone. Nothing is wrong: the archive is as the "
            "stand expects it.");
        QVERIFY(!control(window, "Mend")->isEnabled());
        press(window, "Findings", Qt::Key_Escape);
        QVERIFY(!windowNamed(window));
    }
};

QTEST_MAIN(CheckWindowTest)
#include "check_window_test.moc"

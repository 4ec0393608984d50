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
    void freshFolder_lacksTwoFilesThatTwoClicksMend()
    {
        Program program(QByteArray(), {Answer::Yes});
        chooseMenu("Check the archive…");
        QCOMPARE(findings(), QStringList({"No generi.js", "No empty sheet m.jpg"}));
        QCOMPARE(state(), "2 findings.");
        click(window, "Mend");
        QCOMPARE(findings(), QStringList("No empty sheet m.jpg"));
        QCOMPARE(state(), "There are names of categories now. 1 finding.");
        click(window, "Mend");
        QCOMPARE(
            state(),
            "There is a white empty sheet now. Nothing is wrong: the archive is as the stand expects it.");
        QVERIFY(!control(window, "Mend")->isEnabled());
        QCOMPARE(program.told.size(), 1); // whether to begin
        QCOMPARE(Module1.categoryName[33], "Other");
        press(window, "Findings", Qt::Key_Escape);
        QVERIFY(!windowNamed(window));
    }

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
        putPicture("spartiti/m.jpg", Qt::white);
        putCategories();
        put("spartiti/midi.js.Xa81bQ", "x");
        put("spartiti/2l.jpg", contents("spartiti/m.jpg"));
        chooseMenu("Check the archive…");
        QCOMPARE(findings(), QStringList({"Wrong name: 2l.jpg", "Left over: midi.js.Xa81bQ"}));
        press(window, "Findings", Qt::Key_A, Qt::ControlModifier);
        put("spartiti/2L.jpg", contents("spartiti/m.jpg"));
        program.boxesOf(window, "Mend", {enterKey});
        QCOMPARE(program.told.size(), 2);
        QVERIFY(program.told[0].contains("midi.js.Xa81bQ"));
        QVERIFY(program.told[1].startsWith("This was not mended, and is as it was before.\nspartiti/2L.jpg"));
        QCOMPARE(findings().size(), 2);
        QFile::remove("spartiti/2L.jpg");
        press(window, "Findings", Qt::Key_F5);
        program.answers = {Answer::Yes};
        press(window, "Findings", Qt::Key_A, Qt::ControlModifier);
        click(window, "Mend");
        QCOMPARE(
            state(),
            "2l.jpg is called 2L.jpg now. midi.js.Xa81bQ is gone. Nothing is wrong: the archive is as the "
            "stand expects it.");
    }
};

QTEST_MAIN(CheckWindowTest)
#include "check_window_test.moc"

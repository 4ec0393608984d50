#include "support/windows.h"

static const QString window = "Bring in songs";
static const QString list = "Songs to bring in";

static QWidget *table()
{
    return control(window, list);
}

static QString cell(int row, int column)
{
    return cell(window, list, row, column);
}

// A plus for each row that is ticked, a dot for each other one.
static QString ticks()
{
    return shownRows(window, list).replaceInStrings(QRegularExpression("^$"), ".").join("");
}

struct Intake : Program {
    Intake()
    {
        putPicture("in/Menuet-L.jpg", Qt::red);
        putPicture("in/Menuet-R.jpg", Qt::blue);
        putPicture("in/Largo.png", Qt::green);
        putPicture("in/One.jpg", Qt::yellow);
        put("in/text.jpg", "text");
    }
};

using Dropped = std::pair<QStringList, int>; // files, and the rows that come; -1: the window does not open

class IntakeWindowTest : public WindowTest
{
    Q_OBJECT
private slots:
    void aFolder_isLookedThroughAndBroughtIn()
    {
        Intake program;
        press("Form1", "Text2", Qt::Key_I, Qt::ControlModifier);
        waitUntilActive(window);
        dropFiles(table(), {"in"});
        QCOMPARE(cell(0, 4) + cell(1, 4) + cell(2, 4) + cell(3, 4), "LargoMenuetOnetext");
        QCOMPARE(cell(2, 8), "in the archive as no. 1");
        QTRY_VERIFY(cell(3, 8).contains("it is not a picture")); // once it is seen
        QCOMPARE(ticks(), "++..");
        clickCell(window, list, 1, 1);
        chooseByMenuKey(window, list, {"Exchange pages"});
        clickCell(window, list, 0, 5);
        clickCell(window, list, 1, 5, Qt::ShiftModifier);
        QTest::keyClick(table(), Qt::Key_F2);
        QTest::keyClicks(QApplication::focusWidget(), "Anna");
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QTRY_COMPARE(cell(1, 5), "Anna");
        click(window, "Make a playlist of them");
        type(window, "Playlist", "Evening");
        QCOMPARE(program.boxesOf(window, "Bring in"),
                 "2 songs were brought in, as numbers 4 to 5. They make the playlist \"Evening\".");
        QCOMPARE(contents("spartiti/archivio.js"),
                 archiveOf({"One|||0", "Two|||0", "Three|||7", "Largo|Anna||0", "Menuet|Anna||0"}));
        QCOMPARE(contents("spartiti/5L.jpg"), contents("in/Menuet-R.jpg"));
        QVERIFY(contents("spartiti/playlist.js").contains("\"Evening\",\"4,5,#\""));
        QCOMPARE(textOf("Form1", "Text2"), "Largo");
        QCOMPARE(ticks(), ".."); // those that did not come
    }

    void rows_areHalvedJoinedTickedAndUndone()
    {
        Intake program;
        chooseMenu("Bring in songs…");
        waitUntilActive(window);
        dropFiles(windowNamed(window), {"in/Largo.png", "in/Menuet-L.jpg"});
        clickCell(window, list, 0, 1);
        chooseByMenuKey(window, list, {"Halve"});
        QCOMPARE(cell(0, 2), "Largo.png, right half");
        QTest::keyClick(table(), Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(cell(0, 2), QString());
        clickCell(window, list, 1, 4);
        chooseByMenuKey(window, list, {"Join with the one above"});
        clickCell(window, list, 0, 2);
        QTest::keyClick(table(), Qt::Key_T, Qt::ControlModifier);
        chooseByMenuKey(window, list, {"New song begins here"});
        QCOMPARE(cell(0, 2) + cell(1, 1), "Menuet-L.jpg, turned");
        clickCell(window, list, 0, 4);
        QTest::keyClick(table(), Qt::Key_Space);
        QCOMPARE(ticks(), ".+");
        putArchive({"Other|||0"});
        QVERIFY(program.boxesOf(window, "Bring in")
                    .startsWith("Nothing was brought in; the archive is as it was before.\nAnother program"));
        program.answers = {enterKey, Answer::Yes};
        QTest::keyClick(table(), Qt::Key_Escape);
        QVERIFY(windowNamed(window));
        QTest::keyClick(table(), Qt::Key_Escape);
        QVERIFY(!windowNamed(window));
    }

    void onTheMainWindow_aPageOrARecordingIsStoredAndUndone()
    {
        Intake program;
        program.rooms.beginHistory();
        put("spartiti/3L.jpg", "old left");
        put("spartiti/3R.jpg", "old right");
        put("spartiti/m.jpg", "empty");
        put("in/sound.mp3", "sound");
        dropFiles(control("Form1", "Left page"), {"in/Menuet-L.jpg"});
        QCOMPARE(contents("spartiti/3L.jpg"), contents("in/Menuet-L.jpg"));
        QCOMPARE(contents("spartiti/3R.jpg"), "old right");
        dropFiles(windowNamed("Form1"), {"in/sound.mp3"});
        QCOMPARE(contents("spartiti/audio/3.mp3"), "sound");
        QCOMPARE(Module1.recCategory[3], "7");
        press("Form1", "Text2", Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(contents("spartiti/audio/3.mp3"), "(missing)");
        press("Form1", "Text2", Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(contents("spartiti/3L.jpg"), "old left");
    }

    void onTheMainWindow_anythingElseIsBroughtIn_data()
    {
        tableOf<Dropped>({{"a folder", {{"in"}, 4}},
                          {"two files", {{"in/One.jpg", "in/Largo.png"}, 2}},
                          {"a png", {{"in/Largo.png"}, 1}},
                          {"a web address", {{"https://example.org/a.jpg"}, -1}},
                          {"a text named so", {{"in/text.jpg"}, -1}}});
    }
    void onTheMainWindow_anythingElseIsBroughtIn()
    {
        const auto [files, rows] = tableRow<Dropped>();
        const Intake program;
        dropFiles(control("Form1", "Left page"), files);
        QCOMPARE(contents("spartiti/3L.jpg"), "(missing)");
        QCOMPARE(windowNamed(window) ? ticks().size() : -1, rows);
    }
};

QTEST_MAIN(IntakeWindowTest)
#include "intake_window_test.moc"

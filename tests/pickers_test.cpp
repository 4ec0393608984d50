// The windows in which a page or a recording is picked: sinistra, destra and mp3.
#include "files/platform.h"
#include "support/windows.h"

// The program on record 3 of three, with a green scan and a recording to pick.
struct Stand : Program {
    QByteArray scan;

    Stand()
    {
        put("spartiti/m.jpg", "empty sheet");
        put("spartiti/3R.jpg", "old right");
        put("spartiti/audio/3.mp3", "old");
        put("spartiti/generi.js", fileOf("generi", linesOf(QString("Rock & Roll|").repeated(32))));
        put("scans/a.mp3", "song a");
        putPicture("scans/a.jpg", Qt::green);
        scan = contents("scans/a.jpg");
    }
};

static void pick(const QString &button, const QString &file)
{
    const QString picker = button == "Mp3" ? "Mp3 Manager" : button + " page";
    click("Form1", button);
    openFolder(picker, "scans");
    clickFile(picker, file);
}

class PickersTest : public WindowTest
{
    Q_OBJECT
private slots:
    void leftBringsTheEmptySheet_andTheMainWindowShowsWhatLiesThere()
    {
        const Stand stand;
        const auto shown = [] { return control("Form1", "Left page")->grab().toImage().pixelColor(50, 50); };
        pick("Left", "a.jpg");
        click("sinistra", "Ok");
        QCOMPARE(contents("spartiti/3L.jpg") + contents("spartiti/3R.jpg"), stand.scan + "empty sheet");
        QCOMPARE(stand.told, QStringList("Perfect! The file was moved to the music folder."));
        QCOMPARE(contents("scans/a.jpg"), stand.scan);
        waitUntilActive("Form1");
        QVERIFY(shown().green() > 240 && shown().red() < 16 && shown().blue() < 16);
        QVERIFY(control("Form1", "This song has a recording")->isVisible());
        click("Form1", "Left");
        waitUntilActive("sinistra");
        QFile::remove("spartiti/3L.jpg");
        waitUntilActive("Form1");
        QVERIFY(shown() == QColor(Qt::white));
    }

    void aPick_isOfAnyNameAndOutlivesHidingFoldersAndTheCloseBox()
    {
        const Stand stand;
        const QString marks = isForbiddenName("<b>") ? "" : " \"<b>\"";
        const QString odd = "scans/città €  100 %1 &" + marks + QString(221, 'x') + ".JPG"; // 255 bytes
        put(odd, "odd");
        pick("Right", "a.jpg");
        press("destra", "File1", Qt::Key_Down);
        openFolder("destra", QDir::current().dirName());
        click("destra", "ESC");
        press("Form1", "VScroll1", Qt::Key_Up);
        click("Form1", "Right");
        QCOMPARE(QDir::fromNativeSeparators(textOf("destra", "Label1")) + textOf("destra", "Label2"),
                 QDir::current().filePath(odd) + '3');
        windowNamed("destra")->close();
        click("Form1", "Right");
        QCOMPARE(textOf("destra", "Label1") + textOf("destra", "Label2"), "Label12");
        QTRY_VERIFY(windowNamed("preview")); // what would be stored is shown
        press("Form1", "VScroll1", Qt::Key_Up);
        click("destra", "Ok");
        QCOMPARE(namesIn("spartiti"),
                 QStringList({"1R.jpg", "3R.jpg", "archivio.js", "audio", "generi.js", "m.jpg"}));
        QCOMPARE(contents("spartiti/1R.jpg"), "odd");
    }

    void failure_isToldAndHarmsNoPage()
    {
        Stand stand;
        const QString notStored = "The left page of title 3 was not stored; its pages are as they were";
        put("spartiti/3L.jpg", "old left");
        click("Form1", "Left");
        QCOMPARE(stand.boxesOf("sinistra", "Ok"), "You must select a jpg file!");
        pick("Left", "a.jpg");
        clickWithFullDisk("sinistra", "Ok", 3);
        QVERIFY(stand.told.last().startsWith(notStored));
        Module1.archiveRefusal = "The archive is damaged.";
        QVERIFY(stand.boxesOf("sinistra", "Ok").endsWith(std::exchange(Module1.archiveRefusal, {})));
        QCOMPARE(contents("spartiti/3L.jpg"), "old left");
        QFile::remove("spartiti/m.jpg");
        QVERIFY(stand.boxesOf("sinistra", "Ok")
                    .startsWith("The left page of title 3 was stored. Its right page is as it was"));
        QCOMPARE(contents("spartiti/3L.jpg") + contents("spartiti/3R.jpg"), stand.scan + "old right");
    }

    void preview_showsThePickBesideAndTakesNothing()
    {
        const Stand stand;
        pick("Left", "a.jpg");
        QTRY_VERIFY(windowNamed("preview"));
        QWidget *preview = windowNamed("preview"), *picker = windowNamed("sinistra");
        QVERIFY(!preview->frameGeometry().intersects(picker->frameGeometry()));
        QVERIFY(preview->grab().toImage().pixelColor(50, 50).green() > 240);
        QVERIFY(preview->windowFlags().testFlag(Qt::WindowTransparentForInput));
        QVERIFY(preview->parentWidget() == picker && QApplication::activeWindow() == picker);
        QVERIFY(control("sinistra", "Pages")->hasFocus());
        waitUntilActive("Form1");
        QTRY_VERIFY(!windowNamed("preview"));
        waitUntilActive("sinistra");
        QTRY_VERIFY(windowNamed("preview"));
        click("sinistra", "ESC");
        QVERIFY(!windowNamed("preview"));
    }

    void oneClick_storesTheCategoryOfOneRecordAndTheRecordingOfAnother()
    {
        const Stand stand;
        pick("Mp3", "a.mp3");
        QCOMPARE(textOf("mp3", "Command3(32)") + textOf("mp3", "Command3(33)"), "Rock && Roll");
        press("Form1", "VScroll1", Qt::Key_Up);
        click("mp3", "Command3(33)");
        QVERIFY(!windowNamed("mp3"));
        QVERIFY(Module1.recCategory[3] == "33" && Module1.archiveChanged);
        QCOMPARE(contents("spartiti/audio/2.mp3") + contents("spartiti/audio/3.mp3"), "song aold");
        click("Form1", "Mp3");
        click("mp3", "Command3(1)");
        QCOMPARE(Module1.recCategory[2], "1");
        QVERIFY(stand.told.isEmpty());
    }

    void failure_harmsNeitherCategoryNorRecording()
    {
        Stand stand;
        pick("Mp3", "a.mp3");
        Module1.archiveRefusal = "The archive is damaged.";
        QVERIFY(stand.boxesOf("mp3", "Command3(9)").endsWith(std::exchange(Module1.archiveRefusal, {})));
        QFile::remove("scans/a.mp3");
        QVERIFY(stand.boxesOf("mp3", "Command3(9)")
                    .startsWith("Neither the category nor the recording was stored;"));
        QVERIFY(Module1.recCategory[3] == "7" && !Module1.archiveChanged);
        QCOMPARE(contents("spartiti/audio/3.mp3"), "old");
        windowNamed("mp3")->close();
        click("Form1", "Mp3"); // the pick has gone with the window
        QCOMPARE(stand.boxesOf("mp3", "Command3(1)"), "You must select an mp3 file!");
    }

    void badCategoriesFile_isToldOnceWithItsLine()
    {
        const Program program;
        put("spartiti/generi.js", fileOf("generi", linesOf("Rock|Waltz")) + "show();\r\n");
        click("Form1", "Mp3");
        QCOMPARE(textOf("mp3", "Command3(2)") + textOf("mp3", "Command3(3)"), "Waltz3");
        QCOMPARE(program.told.size(), 1);
        QVERIFY(program.told[0].contains("line 4 "));
    }
};

QTEST_MAIN(PickersTest)
#include "pickers_test.moc"

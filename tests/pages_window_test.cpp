#include "support/windows.h"

// The program on record 3 of three, with a green scan to pick.
struct Stand : Program {
    QString scan = QDir::current().filePath("scans/a.jpg");
    QByteArray bytes;

    Stand()
    {
        put("spartiti/m.jpg", "empty sheet");
        put("spartiti/3R.jpg", "old right");
        putPicture(scan, Qt::green);
        bytes = contents(scan);
    }
};

static void pick(const QString &picker, const QString &file)
{
    click("Form1", picker == "sinistra" ? "Left" : "Right");
    openFolder(picker, "scans");
    clickFile(picker, file);
}

class PagesWindowTest : public WindowTest
{
    Q_OBJECT
private slots:
    void leftBringsTheEmptySheet_andTheMainWindowShowsWhatLiesThere()
    {
        const Stand stand;
        const auto shown = [] { return control("Form1", "Left page")->grab().toImage().pixelColor(50, 50); };
        pick("sinistra", "a.jpg");
        click("sinistra", "Ok");
        QCOMPARE(contents("spartiti/3L.jpg") + contents("spartiti/3R.jpg"), stand.bytes + "empty sheet");
        QCOMPARE(stand.told, QStringList("Perfect! The file was moved to the music folder."));
        QCOMPARE(contents(stand.scan), stand.bytes);
        put("spartiti/audio/3.mp3", "song");
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
        const QString odd = "scans/città €  100 %1 \"&\" <b>" + QString(221, 'x') + ".JPG"; // 255 bytes
        put(odd, "odd");
        pick("destra", "a.jpg");
        press("destra", "File1", Qt::Key_Down);
        openFolder("destra", QDir::current().dirName());
        click("destra", "ESC");
        press("Form1", "VScroll1", Qt::Key_Up);
        click("Form1", "Right");
        QCOMPARE(textOf("destra", "Label1") + textOf("destra", "Label2"),
                 QDir::current().filePath(odd) + '3');
        windowNamed("destra")->close();
        click("Form1", "Right");
        QCOMPARE(textOf("destra", "Label1") + textOf("destra", "Label2"), "Label12");
        press("Form1", "VScroll1", Qt::Key_Up);
        click("destra", "Ok");
        QCOMPARE(namesIn("spartiti"), QStringList({"1R.jpg", "3R.jpg", "archivio.js", "m.jpg"}));
        QCOMPARE(contents("spartiti/1R.jpg"), "odd");
    }

    void failure_isToldAndHarmsNoPage()
    {
        Stand stand;
        const QString notStored = "The left page of title 3 was not stored; its pages are as they were";
        put("spartiti/3L.jpg", "old left");
        click("Form1", "Left");
        QCOMPARE(stand.boxesOf("sinistra", "Ok"), "You must select a jpg file!");
        pick("sinistra", "a.jpg");
        clickWithFullDisk("sinistra", "Ok", 3);
        QVERIFY(stand.told.last().startsWith(notStored));
        Module1.archiveRefusal = "The archive is damaged.";
        QVERIFY(stand.boxesOf("sinistra", "Ok").endsWith(std::exchange(Module1.archiveRefusal, {})));
        QCOMPARE(contents("spartiti/3L.jpg"), "old left");
        QFile::remove("spartiti/m.jpg");
        QVERIFY(stand.boxesOf("sinistra", "Ok")
                    .startsWith("The left page of title 3 was stored. Its right page is as it was"));
        QCOMPARE(contents("spartiti/3L.jpg") + contents("spartiti/3R.jpg"), stand.bytes + "old right");
    }

    void preview_showsThePickBesideAndTakesNothing()
    {
        const Stand stand;
        pick("sinistra", "a.jpg");
        QTRY_VERIFY(windowNamed("preview"));
        QWidget *preview = windowNamed("preview"), *picker = windowNamed("sinistra");
        QVERIFY(!preview->frameGeometry().intersects(picker->frameGeometry()));
        QVERIFY(qAbs(preview->width() * 4 - preview->height() * 3) < 12);
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
};

QTEST_MAIN(PagesWindowTest)
#include "pages_window_test.moc"

#include "controls/image_frame.h"
#include "files/data_folder.h"
#include "support/windows.h"

#include <QDir>
#include <QImage>

static void putPicture(int record, Qt::GlobalColor colour)
{
    QImage image(30, 40, QImage::Format_RGB32);
    image.fill(colour);
    QVERIFY(image.save(pagePath(record, Page::Left, "other")));
}

// The program over an archive of two songs, beside an installation of three in the folder "other".
struct Stand : Program {
    Stand()
        : Program(archiveOf({"One|A|tag|3", "Two|||"}))
    {
        put("other/index.html", "");
        put("other/spartiti/archivio.js", archiveOf({"Zebra|||1", "Apple|||2", "Apple|||3"}));
        putPicture(1, Qt::red);
        putPicture(2, Qt::green);
    }
};

static void openSource(const QString &name = "other")
{
    chooseMenu("merging");
    openFolder("Premerge", name);
    clickRow("Premerge", "File1", 0);
    click("Premerge", "Command1");
}

static QColor preview()
{
    const QPixmap &picture = control<ImageFrame>("merging", "Image1")->picture();
    return picture.isNull() ? QColor() : picture.toImage().pixelColor(5, 5);
}

class MergeWindowTest : public WindowTest
{
    Q_OBJECT
private slots:
    void premerge_isArmedByAnyFileAndStaysWhenADriveHasGone()
    {
        const Stand stand;
        const QByteArray home = qgetenv("HOME");
        qputenv("HOME", QFile::encodeName(QDir::currentPath() + "/gone"));
        chooseMenu("merging");
        qputenv("HOME", home);
        openFolder("Premerge", "other");
        QVERIFY(!control("Premerge", "Command1")->isEnabled());
        clickFile("Premerge", "index.html");
        press("Premerge", "Drive1", Qt::Key_Down);
        QVERIFY(stand.told.join("").contains("/gone cannot be read."));
        QVERIFY(control("Premerge", "Command1")->isEnabled());
        click("Premerge", "Command1");
        QCOMPARE(Module1.mergeSourcePath, QDir::currentPath() + "/other");
    }

    void list_ticksAndShowsPagesByPlace()
    {
        const Stand stand;
        openSource();
        control("merging", "List1")->setFocus();
        QVERIFY(!preview().isValid());
        press("merging", "List1", Qt::Key_Down);
        QVERIFY(preview().red() > 200);
        clickRow("merging", "List1", 1, 10);
        QVERIFY(preview().green() > 200);
        clickRow("merging", "List1", 2);
        QVERIFY(!preview().isValid());
        press("merging", "List1", Qt::Key_Home);
        press("merging", "List1", Qt::Key_Space);
        QCOMPARE(shownRows("merging", "List1"), QStringList({"+Zebra", "+Apple", "Apple"}));
        clickRow("merging", "List1", 0, 10);
        QCOMPARE(shownRows("merging", "List1"), QStringList({"Zebra", "+Apple", "Apple"}));

        put("bare/index.html", "");
        openSource("bare"); // while the other list is open
        QVERIFY(stand.told.join("").endsWith("bare/spartiti/archivio.js: there is no such file"));
        QCOMPARE(shownRows("merging", "List1"), QStringList());
    }

    void absorb_addsTheTickedSongsAndReopensTheMainWindowOnTheLast()
    {
        Stand stand;
        stand.answers = {Answer::No, Answer::Yes, Answer::Ok, Answer::Yes,
                         Answer::Ok, Answer::Ok,  Answer::Yes};
        type("Form1", "Text3", "unsaved");
        openSource();
        clickRow("merging", "List1", 2, 10);
        clickRow("merging", "List1", 0, 10);
        put("spartiti/4L.jpg", "from before");
        click("merging", "Command2");
        QCOMPARE(stand.told.value(0),
                 "The selected tracks will be added to your archive. You want to proceed?");
        clickWithFullDisk("merging", "Command2", 20);
        QVERIFY(stand.told.last().startsWith("Nothing was absorbed; the archive is as it was before.\n"));
        QCOMPARE(namesIn("spartiti"), QStringList({"4L.jpg", "archivio.js"}));
        click("merging", "Command2");
        QVERIFY(stand.told.value(4).contains("spartiti/4L.jpg is now spartiti/4L (old 1).jpg"));
        QVERIFY(stand.told.value(5).startsWith("The merger of the archives has been completed."));
        QCOMPARE(contents("spartiti/archivio.js"),
                 archiveOf({"One|A|tag|3", "Two|unsaved||0", "Zebra|||1", "Apple|||3"}));
        QCOMPARE(contents("spartiti/3L.jpg"), contents("other/spartiti/1L.jpg"));
        QCOMPARE(textOf("Form1", "Label6") + textOf("Form1", "Text1"), "There are 4 titles4");
        QCOMPARE(shownRows("merging", "List1"), QStringList({"+Zebra", "Apple", "+Apple"}));
        click("merging", "Command2");
        QCOMPARE(textOf("Form1", "Label6"), "There are 6 titles");
    }
};

QTEST_MAIN(MergeWindowTest)
#include "merge_window_test.moc"

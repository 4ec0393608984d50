#include "archive/Module1.h"
#include "main/Form1.h"
#include "support/lists.h"

#include <QDir>
#include <QLabel>

// The main window on record 3 of three, with scans to pick from.
struct Stand {
    TestFolder folder;
    QString scan = QDir::current().filePath("scans/a.jpg");
    Form1 form1;
    BoxAnswers boxes;

    Stand()
    {
        putArchive({"One|||0", "Two|||0", "Three|||0"});
        put("spartiti/m.jpg", "empty sheet");
        put("spartiti/3R.jpg", "old right");
        put(scan, "scan a");
        form1.show();
    }
};

static void pick(const QString &picker, const QString &file)
{
    click("Form1", picker == "sinistra" ? "Command3" : "Command4");
    openFolder(picker, "scans");
    clickFile(picker, file);
}

static QString text(const QString &picker, const QString &label)
{
    return control<QLabel>(picker, label)->text();
}

class PagesWindowTest : public QObject
{
    Q_OBJECT
private slots:
    void leftBringsTheEmptySheetAndRightAnyName()
    {
        const Stand stand;
        const QString odd = "città €  100 %1 \"&\" <b>" + QString(221, 'x') + ".JPG"; // 255 bytes
        put("scans/" + odd, "odd");
        pick("sinistra", "a.jpg");
        QCOMPARE(namesIn("spartiti"), QStringList({"3R.jpg", "archivio.js", "m.jpg"}));
        click("sinistra", "Command2");
        QCOMPARE(contents("spartiti/3L.jpg"), "scan a");
        QCOMPARE(contents("spartiti/3R.jpg"), "empty sheet");

        pick("destra", odd);
        QCOMPARE(text("destra", "Label1"), QDir::current().filePath("scans/" + odd));
        click("destra", "Command2");
        QCOMPARE(contents("spartiti/3R.jpg"), "odd");
        QVERIFY(!windowNamed("destra"));
        const QString done = "Perfect! The file was moved to the music folder.";
        QCOMPARE(stand.boxes.texts, QStringList({done, done}));
        QCOMPARE(contents(stand.scan), "scan a");
    }

    void aPick_outlivesHidingFoldersAndTheCloseBox()
    {
        const Stand stand;
        pick("destra", "a.jpg");
        openFolder("destra", QDir::current().dirName());
        click("destra", "Command1");
        QTest::keyClick(control("Form1", "VScroll1"), Qt::Key_Up);
        click("Form1", "Command4");
        QCOMPARE(text("destra", "Label1"), stand.scan);
        QCOMPARE(text("destra", "Label2"), "3");

        windowNamed("destra")->close();
        click("Form1", "Command4");
        QCOMPARE(text("destra", "Label1"), "Label1");
        QCOMPARE(text("destra", "Label2"), "2");
        QTest::keyClick(control("Form1", "VScroll1"), Qt::Key_Up);
        click("destra", "Command2");
        QCOMPARE(namesIn("spartiti"), QStringList({"1R.jpg", "3R.jpg", "archivio.js", "m.jpg"}));
    }

    void failure_isToldAndHarmsNoPage_data()
    {
        QTest::addColumn<QString>("told");
        QTest::addColumn<QByteArray>("left");
        const QString untouched =
            "The left page of title 3 was not stored; its pages are as they were before.\n";
        QTest::newRow("unchosen") << "You must select a jpg file!" << QByteArray("old");
        QTest::newRow("gone") << untouched + "%1: there is no such file" << QByteArray("old");
        QTest::newRow("full") << untouched + "spartiti/3L.jpg: File too large" << QByteArray("old");
        QTest::newRow("no sheet")
            << "The left page of title 3 was stored. Its right page is as it was before: "
               "the empty page could not be put there.\n"
               "spartiti/m.jpg: there is no such file"
            << QByteArray("scan a");
    }
    void failure_isToldAndHarmsNoPage()
    {
        QFETCH(QString, told);
        QFETCH(QByteArray, left);
        const QString trouble = QTest::currentDataTag();
        const Stand stand;
        put("spartiti/3L.jpg", "old");
        click("Form1", "Command3");
        if (trouble != "unchosen")
            pick("sinistra", "a.jpg");
        if (trouble == "gone")
            QFile::remove(stand.scan);
        if (trouble == "no sheet")
            QFile::remove("spartiti/m.jpg");
        const FullDisk disk(trouble == "full" ? 3 : 1000);
        click("sinistra", "Command2");
        QCOMPARE(stand.boxes.texts, QStringList(told.replace("%1", stand.scan)));
        QCOMPARE(contents("spartiti/3L.jpg"), left);
        QCOMPARE(contents("spartiti/3R.jpg"), "old right");
        QVERIFY(windowNamed("sinistra"));
    }
};

WINDOW_TEST_MAIN(PagesWindowTest)
#include "pages_window_test.moc"

#include "controls/file_list.h"
#include "controls/folder_list.h"
#include "main/Form1.h"
#include "support/lists.h"

#include <QDir>
#include <QLabel>
#include <QSignalSpy>

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
        click("sinistra", "Command2");
        QCOMPARE(contents("spartiti/3L.jpg"), "scan a");
        QCOMPARE(contents("spartiti/3R.jpg"), "empty sheet");
        pick("destra", odd);
        QCOMPARE(text("destra", "Label1"), QDir::current().filePath("scans/" + odd));
        click("destra", "Command2");
        QCOMPARE(contents("spartiti/3R.jpg"), "odd");
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

    void failure_isToldAndHarmsNoPage()
    {
        const Stand stand;
        put("spartiti/3L.jpg", "old left");
        click("Form1", "Command3");
        click("sinistra", "Command2");
        pick("sinistra", "a.jpg");
        {
            const FullDisk disk(3);
            click("sinistra", "Command2");
        }
        QFile::rename("scans/a.jpg", "scans/b.jpg");
        click("sinistra", "Command2");
        QCOMPARE(contents("spartiti/3L.jpg"), "old left");
        QFile::rename("scans/b.jpg", "scans/a.jpg");
        QFile::remove("spartiti/m.jpg");
        click("sinistra", "Command2");
        QCOMPARE(contents("spartiti/3L.jpg"), "scan a");
        QCOMPARE(contents("spartiti/3R.jpg"), "old right");
        QVERIFY(windowNamed("sinistra"));
        const QString untouched =
            "The left page of title 3 was not stored; its pages are as they were before.\n";
        QCOMPARE(
            stand.boxes.texts,
            QStringList({"You must select a jpg file!", untouched + "spartiti/3L.jpg: File too large",
                         untouched + stand.scan + ": there is no such file",
                         "The left page of title 3 was stored. Its right page is as it was before: the empty "
                         "page could not be put there.\nspartiti/m.jpg: there is no such file"}));
    }

    void files_matchWhateverTheirCaseAndStandInAPersonsOrder()
    {
        const Stand stand;
        const QStringList names{".x.jpg", "A.jpg", "b.jpg", "è.jpg", "f.jpg", "Page 9.JPG", "page 10.jpg"};
        for (const QString &name : names + QStringList({"scan.jpeg", "jpg", "folder.jpg/inside"}))
            put(name, "x");
        click("Form1", "Command3");
        QCOMPARE(shownRows("sinistra", "File1"), names);
    }

    void folders_showTheWayFromTheRootAndTheKeyboardWalksIt()
    {
        const Stand stand;
        for (const QString name : {"scans/2", "scans/10", "scans/Alpha", "scans/.hidden"})
            QDir().mkpath(name);
        pick("sinistra", "a.jpg");
        const auto *files = control<FileList>("sinistra", "File1");
        QStringList way = files->path().split('/');
        way[0] = "/";
        QCOMPARE(shownRows("sinistra", "Dir1"), way + QStringList({"2", "10", "Alpha"}));
        auto *folders = control<FolderList>("sinistra", "Dir1");
        QTest::keyClick(folders, Qt::Key_Down);
        QTest::keyClick(folders, Qt::Key_Return);
        QCOMPARE(files->path(), QDir::current().filePath("scans/2"));
        QTest::keyClick(folders, Qt::Key_Home);
        QTest::keyClick(folders, Qt::Key_Enter);
        QCOMPARE(files->path(), "/");
    }

    // For a person without the right to read it, a folder fails at the same place as one that has gone.
    void folderThatCannotBeRead_leavesTheListAndSaysSo()
    {
        const Stand stand;
        QDir().mkpath("gone & <b>away");
        click("Form1", "Command3");
        QDir().rmdir("gone & <b>away");
        const QStringList before = shownRows("sinistra", "Dir1");
        openFolder("sinistra", "gone & <b>away");
        auto *folders = control<FolderList>("sinistra", "Dir1");
        QVERIFY(folders->toolTip().contains("&lt;b&gt;away"));
        QVERIFY(!folders->setPath("/no/such/drive"));
        QCOMPARE(folders->toolTip(), "/no/such/drive cannot be read: No such file or directory");
        QCOMPARE(shownRows("sinistra", "Dir1"), before);
    }

    void selection_comesFromMouseAndKeyboardAndOutlivesHiding()
    {
        const Stand stand;
        for (const QString name : {"a.jpg", "b.jpg", "c.jpg"})
            put(name, "x");
        click("Form1", "Command3");
        auto *files = control<FileList>("sinistra", "File1");
        QSignalSpy clicks(files, &FileList::fileClicked);
        QTest::keyClick(files, Qt::Key_Down);
        QCOMPARE(files->selected(), "a.jpg");
        QTest::keyClick(files, Qt::Key_Down);
        QCOMPARE(files->selected(), "b.jpg");
        clickFile("sinistra", "c.jpg");
        clickFile("sinistra", "c.jpg", Qt::ControlModifier);
        click("sinistra", "Command1");
        QFile::remove("a.jpg");
        click("Form1", "Command3");
        QCOMPARE(shownRows("sinistra", "File1"), QStringList({"b.jpg", "c.jpg"}));
        QCOMPARE(files->currentIndex().row(), 1);
        QCOMPARE(files->selectedPath(), QDir::current().filePath("c.jpg"));
        QCOMPARE(clicks.count(), 3);
        QFile::remove("c.jpg");
        openFolder("sinistra", QDir::current().dirName());
        QVERIFY(files->selected().isEmpty());
    }
};

WINDOW_TEST_MAIN(PagesWindowTest)
#include "pages_window_test.moc"

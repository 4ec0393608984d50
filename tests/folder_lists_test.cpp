#include "controls/control_maker.h"
#include "controls/file_list.h"
#include "controls/folder_list.h"
#include "support/lists.h"

#include <QDir>
#include <QSignalSpy>

// The two lists side by side, as the windows have them.
struct Lists {
    QWidget window;
    FolderList *folders = ControlMaker(&window).add<FolderList>("Dir1", "Folders", {0, 0, 3375, 3990}, {});
    FileList *files = ControlMaker(&window).add<FileList>("File1", "Files", {3600, 0, 3135, 3990}, {});

    Lists()
    {
        window.setObjectName("lists");
        files->setPattern("*.jpg");
        QObject::connect(folders, &FolderList::folderChanged, files, &FileList::setPath);
        window.show();
    }
};

class FolderListsTest : public QObject
{
    Q_OBJECT
private slots:
    void files_matchWhateverTheirCaseAndStandInAPersonsOrder()
    {
        const TestFolder folder;
        const QStringList expected{".x.jpg", "A.jpg", "b.jpg", "è.jpg", "f.jpg", "Page 9.JPG", "page 10.jpg"};
        for (const QString &name : expected + QStringList({"scan.jpeg", "jpg", "folder.jpg/inside"}))
            put(name, "x");
        const Lists lists;
        QCOMPARE(shownRows("lists", "File1"), expected);
    }

    void folders_showTheWayFromTheRootAndTheKeyboardWalksIt()
    {
        const TestFolder folder;
        for (const QString name : {"scans/2", "scans/10", "scans/Alpha", "scans/.hidden", "other"})
            QDir().mkpath(name);
        const Lists lists;
        openFolder("lists", "scans");
        const QString scans = QDir::current().filePath("scans");
        QStringList way = scans.split('/');
        way[0] = "/";
        QCOMPARE(shownRows("lists", "Dir1"), way + QStringList({"2", "10", "Alpha"}));
        QCOMPARE(lists.folders->currentItem()->text(0), "scans");
        QCOMPARE(lists.files->path(), scans);

        QTest::keyClick(lists.folders, Qt::Key_Down);
        QTest::keyClick(lists.folders, Qt::Key_Return);
        QCOMPARE(lists.files->path(), scans + "/2");
        QTest::keyClick(lists.folders, Qt::Key_Home);
        QTest::keyClick(lists.folders, Qt::Key_Enter);
        QCOMPARE(lists.files->path(), "/");
        QCOMPARE(lists.folders->topLevelItemCount(), 1);
    }

    // For a person without the right to read it, a folder fails at the same place as one that has gone.
    void folderThatCannotBeRead_leavesTheListAndSaysSo()
    {
        const TestFolder folder;
        QDir().mkpath("gone & <b>away");
        const Lists lists;
        QSignalSpy changes(lists.folders, &FolderList::folderChanged);
        QDir().rmdir("gone & <b>away");
        const QStringList before = shownRows("lists", "Dir1");
        openFolder("lists", "gone & <b>away");
        QVERIFY(lists.folders->toolTip().contains("&lt;b&gt;away"));
        QVERIFY(!lists.folders->setPath("/no/such/drive"));
        QCOMPARE(lists.folders->toolTip(), "/no/such/drive cannot be read: No such file or directory");
        QCOMPARE(shownRows("lists", "Dir1"), before);
        QCOMPARE(changes.count(), 0);
    }

    void selection_comesFromMouseAndKeyboardAndOutlivesHiding()
    {
        const TestFolder folder;
        for (const QString name : {"a.jpg", "b.jpg", "c.jpg"})
            put(name, "x");
        Lists lists;
        QSignalSpy clicks(lists.files, &FileList::fileClicked);
        lists.files->setFocus();
        QCOMPARE(lists.files->selectedPath(), QString());
        QTest::keyClick(lists.files, Qt::Key_Down);
        QCOMPARE(lists.files->selected(), "a.jpg");
        QTest::keyClick(lists.files, Qt::Key_Down);
        QCOMPARE(lists.files->selected(), "b.jpg");
        clickFile("lists", "c.jpg");
        clickFile("lists", "c.jpg", Qt::ControlModifier);
        QTest::mouseClick(lists.files->viewport(), Qt::LeftButton, {}, {10, 200});
        QCOMPARE(lists.files->selectedPath(), QDir::current().filePath("c.jpg"));

        lists.window.hide();
        QFile::remove("a.jpg");
        lists.window.show();
        QCOMPARE(shownRows("lists", "File1"), QStringList({"b.jpg", "c.jpg"}));
        QCOMPARE(lists.files->currentIndex().row(), 1);
        QCOMPARE(clicks.count(), 3);
        QFile::remove("c.jpg");
        openFolder("lists", QDir::current().dirName());
        QVERIFY(lists.files->selected().isEmpty());
    }
};

WINDOW_TEST_MAIN(FolderListsTest)
#include "folder_lists_test.moc"

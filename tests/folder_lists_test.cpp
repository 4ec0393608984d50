#include "controls/control_maker.h"
#include "controls/file_list.h"
#include "controls/folder_list.h"
#include "support/windows.h"

#include <QDir>
#include <QSignalSpy>

// The two lists side by side, as the windows have them.
struct Lists {
    QWidget window;
    FolderList *folders = ControlMaker(&window).add<FolderList>("Dir1", "Folders", {0, 0, 3375, 3990}, {});
    FileList *files = ControlMaker(&window).add<FileList>("File1", "Files", {3600, 0, 3135, 3990}, {});

    Lists()
    {
        files->setPattern("*.jpg");
        QObject::connect(folders, &FolderList::folderChanged, files, &FileList::setPath);
        window.show();
    }

    QStringList names() const
    {
        QStringList names;
        for (int row = 0; row < files->model()->rowCount(); row += 1)
            names += files->model()->index(row, 0).data().toString();
        return names;
    }

    QStringList folderNames() const
    {
        QStringList names;
        for (QTreeWidgetItemIterator row(folders); *row; ++row)
            names += (*row)->text(0);
        return names;
    }

    void clickFile(int row, Qt::KeyboardModifiers held = {}) const
    {
        const QRect place = files->visualRect(files->model()->index(row, 0));
        QTest::mouseClick(files->viewport(), Qt::LeftButton, held, place.center());
    }

    void openFolder(const QString &name) const
    {
        QTreeWidgetItem *row = folders->findItems(name, Qt::MatchExactly | Qt::MatchRecursive).constLast();
        folders->scrollToItem(row);
        const QPoint place = folders->visualItemRect(row).center();
        QTest::mouseClick(folders->viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(folders->viewport(), Qt::LeftButton, {}, place);
    }
};

class FolderListsTest : public QObject
{
    Q_OBJECT
private slots:
    void files_matchWhateverTheirCaseAndStandInAPersonsOrder()
    {
        const TestFolder folder;
        for (const QString name : {"page 10.jpg", "Page 9.JPG", "b.jpg", "A.jpg", "è.jpg", "f.jpg", ".x.jpg",
                                   "scan.jpeg", "jpg", "song.mp3"})
            put(name, "x");
        put("folder.jpg/inside", "x");
        const QStringList expected{".x.jpg", "A.jpg", "b.jpg", "è.jpg", "f.jpg", "Page 9.JPG", "page 10.jpg"};
        QCOMPARE(Lists().names(), expected);
    }

    void folders_showTheWayFromTheRootAndWhatLiesBelow()
    {
        const TestFolder folder;
        for (const QString name : {"scans/2", "scans/10", "scans/Alpha", "scans/.hidden", "other"})
            QDir().mkpath(name);
        put("scans/a.jpg", "x");
        const Lists lists;
        lists.openFolder("scans");

        QStringList way = QDir::current().filePath("scans").split('/');
        way[0] = "/";
        QCOMPARE(lists.folderNames(), way + QStringList({"2", "10", "Alpha"}));
        QCOMPARE(lists.folders->currentItem()->text(0), "scans");
        QCOMPARE(lists.files->path(), QDir::current().filePath("scans"));
        QCOMPARE(lists.names(), QStringList("a.jpg"));
    }

    void theKeyboardWalksUpAndDown()
    {
        const TestFolder folder;
        QDir().mkpath("scans");
        const Lists lists;
        QTest::keyClick(lists.folders, Qt::Key_Down);
        QTest::keyClick(lists.folders, Qt::Key_Return);
        QCOMPARE(lists.folders->path(), QDir::current().filePath("scans"));
        QTest::keyClick(lists.folders, Qt::Key_Up);
        QTest::keyClick(lists.folders, Qt::Key_Enter);
        QCOMPARE(lists.folders->path(), QDir::currentPath());
    }

    void root_keepsItsSeparatorAndHasNothingAbove()
    {
        const Lists lists;
        lists.openFolder("/");
        QCOMPARE(lists.files->path(), "/");
        QCOMPARE(lists.folders->topLevelItemCount(), 1);
        QVERIFY(lists.folders->setPath(QDir::tempPath() + "/../"));
        QCOMPARE(lists.folders->path(), "/");
    }

    // For a person without the right to read it, a folder fails at the same place as one that has gone.
    void folderThatCannotBeRead_leavesTheListAndSaysSo()
    {
        const TestFolder folder;
        QDir().mkpath("gone & <b>away");
        QDir().mkpath("there");
        const Lists lists;
        QSignalSpy changes(lists.folders, &FolderList::folderChanged);
        QDir().rmdir("gone & <b>away");
        const QStringList before = lists.folderNames();
        lists.openFolder("gone & <b>away");

        QCOMPARE(lists.folderNames(), before);
        QCOMPARE(changes.count(), 0);
        QVERIFY(lists.folders->toolTip().contains("&lt;b&gt;away"));
        QVERIFY(!lists.folders->setPath("/no/such/drive"));
        QCOMPARE(lists.folders->toolTip(), "/no/such/drive cannot be read: No such file or directory");
        lists.openFolder("there");
        QCOMPARE(changes.count(), 1);
        QVERIFY(lists.folders->toolTip().isEmpty());
    }

    void aFileIsSelectedByTheMouseAndByTheKeyboard()
    {
        const TestFolder folder;
        for (const QString name : {"a.jpg", "b.jpg", "c.jpg"})
            put(name, "x");
        const Lists lists;
        QSignalSpy clicks(lists.files, &FileList::fileClicked);
        lists.files->setFocus();
        QCOMPARE(lists.files->selectedPath(), QString());

        QTest::keyClick(lists.files, Qt::Key_Down);
        QCOMPARE(lists.files->selected(), "a.jpg");
        QTest::keyClick(lists.files, Qt::Key_Down);
        QCOMPARE(lists.files->selected(), "b.jpg");
        lists.clickFile(2);
        QCOMPARE(lists.files->selectedPath(), QDir::current().filePath("c.jpg"));
        QCOMPARE(clicks.count(), 3);
        lists.clickFile(2, Qt::ControlModifier);
        QTest::mouseClick(lists.files->viewport(), Qt::LeftButton, {}, {10, 200});
        QCOMPARE(lists.files->selected(), "c.jpg");
        QCOMPARE(clicks.count(), 3);
    }

    void anotherFolder_takesTheSelectionAway()
    {
        const TestFolder folder;
        put("a.jpg", "x");
        put("below/a.jpg", "x");
        const Lists lists;
        lists.clickFile(0);
        lists.openFolder("below");
        QVERIFY(lists.files->selectedPath().isEmpty());
        lists.clickFile(0);
        QCOMPARE(lists.files->selectedPath(), QDir::current().filePath("below/a.jpg"));
    }

    void whatIsShownAgain_isReadAfreshAndKeepsItsSelection()
    {
        const TestFolder folder;
        put("b.jpg", "x");
        Lists lists;
        lists.clickFile(0);
        QSignalSpy clicks(lists.files, &FileList::fileClicked);
        lists.window.hide();
        put("a.jpg", "x");
        lists.window.show();
        QCOMPARE(lists.names(), QStringList({"a.jpg", "b.jpg"}));
        QCOMPARE(lists.files->selected(), "b.jpg");
        QCOMPARE(lists.files->currentIndex().row(), 1);
        QCOMPARE(clicks.count(), 0);

        QFile::remove("b.jpg");
        lists.openFolder(QDir::current().dirName());
        QVERIFY(lists.files->selected().isEmpty());
    }
};

WINDOW_TEST_MAIN(FolderListsTest)
#include "folder_lists_test.moc"

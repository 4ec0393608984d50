#include "browse/file_list.h"
#include "browse/folder_list.h"
#include "support/test_folder.h"

#include <QSignalSpy>
#include <QTreeWidgetItemIterator>

// Where the language and the sorting order differ, the sorting order counts. Read as the program begins.
static const bool isSetUp =
    qunsetenv("LC_ALL") && qputenv("LANG", "en_US.UTF-8") && qputenv("LC_COLLATE", "sv_SE.UTF-8");

static QStringList rowsOf(FolderList &list)
{
    QStringList rows;
    for (QTreeWidgetItemIterator row(&list); *row; ++row)
        rows += (*row)->text(0);
    return rows.mid(rows.lastIndexOf(QFileInfo(list.path()).fileName()));
}

class BrowseTest : public FolderTest
{
    Q_OBJECT
private slots:
    void lists_standInTheSystemsSortingOrder()
    {
        QVERIFY(isSetUp);
        for (const char *name : {"page 10", "ärm", "Zorn", "page 9", "arm"}) {
            QDir().mkpath(name);
            put(QString(name) + ".jpg", {});
        }
        const QStringList sorted = {"arm", "page 9", "page 10", "Zorn", "ärm"};
        FolderList folders(nullptr);
        QCOMPARE(rowsOf(folders).mid(1), sorted);
        FileList files(nullptr);
        files.show();
        for (int row = 0; row < sorted.size(); row += 1)
            QCOMPARE(files.model()->index(row, 0).data().toString(), sorted[row] + ".jpg");
    }

    void folderList_opensEveryName_data() { rowsOf({":x", "a:b", "&x", "%20", "<b>", "x ", "Ä"}); }
    void folderList_opensEveryName()
    {
        const QString name = QTest::currentDataTag();
        QDir().mkpath("./" + name + "/within");
        FolderList list(nullptr);
        list.show();
        list.setCurrentItem(list.findItems(name, Qt::MatchExactly | Qt::MatchRecursive).value(0));
        QTest::keyClick(&list, Qt::Key_Return);
        QCOMPARE(QDir::fromNativeSeparators(list.path()), QDir::currentPath() + '/' + name);
        QCOMPARE(rowsOf(list), QStringList({name, "within"}));
    }

    void folderList_showsTheNamesOfDeepFolders()
    {
        FolderList list(nullptr);
        list.show();
        const QString deep = QDir::currentPath() + QString("/d").repeated(60);
        QDir().mkpath(deep);
        list.setPath(deep);
        list.resize(100, 300);
        QVERIFY(list.visualItemRect(list.currentItem()).left() <= list.viewport()->width() / 2);
    }

    void fileList_keepsTheFileThatWasPicked_unlessItIsGone()
    {
        put("a/1.jpg", {});
        put("1.jpg", {});
        FileList list(nullptr);
        list.show();
        QTest::keyClick(&list, Qt::Key_Down);
        list.setPath("a");
        QCOMPARE(list.selected(), "");
        QTest::keyClick(&list, Qt::Key_Down);
        put("a/.0.jpg", {}); // comes before it
        for (const QString left : {"1.jpg", ""}) {
            list.hide();
            list.show();
            QCOMPARE(list.selected(), left);
            QCOMPARE(list.model()->index(0, 0).data(), ".0.jpg");
            QFile::remove("a/1.jpg");
        }
    }

    void folderList_readsAnewWhenItComesBack()
    {
        QDir().mkpath("a/b");
        FolderList list(nullptr);
        list.show();
        list.setPath("a");
        const QSignalSpy changed(&list, &FolderList::folderChanged);
        list.hide();
        QDir().mkpath("a/c");
        list.show();
        QCOMPARE(rowsOf(list), QStringList({"a", "b", "c"}));
        list.hide();
        QDir("a").removeRecursively();
        list.show();
        QCOMPARE(QDir::fromNativeSeparators(list.path()), QDir::currentPath());
        QCOMPARE(changed.size(), 1);
    }
};

QTEST_MAIN(BrowseTest)
#include "browse_test.moc"

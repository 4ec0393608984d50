#include "controls/control_maker.h"
#include "controls/file_list.h"
#include "controls/folder_list.h"
#include "support/windows.h"

#include <QDir>
#include <QElapsedTimer>
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

    void clickFile(int row) const
    {
        const QRect place = files->visualRect(files->model()->index(row, 0));
        QTest::mouseClick(files->viewport(), Qt::LeftButton, {}, place.center());
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

        WINDOW_TEST_MAIN(FolderListsTest)
#include "folder_lists_test.moc"

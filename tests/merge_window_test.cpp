#include "controls/drive_list.h"
#include "controls/file_list.h"
#include "controls/folder_list.h"
#include "controls/image_frame.h"
#include "controls/text_box.h"
#include "files/data_folder.h"
#include "main/Form1.h"
#include "support/windows.h"

#include <QDir>
#include <QImage>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

static void putPicture(int record, QRgb colour)
{
    QImage image(30, 40, QImage::Format_RGB32);
    image.fill(colour);
    QVERIFY(image.save(pagePath(record, Page::Left, "other")));
}

// The program over an archive of two songs, beside an installation of three in the folder "other".
struct Program {
    TestFolder folder;
    Form1 form1;

    Program()
    {
        putArchive({"One|A|tag|3", "Two|||"});
        put("other/index.html", "");
        put("other/spartiti/archivio.js", archiveOf({"Zebra|||1", "Apple|||2", "Apple|||3"}));
        putPicture(1, qRgb(255, 0, 0));
        putPicture(2, qRgb(0, 255, 0));
        merging::reopenMainWindow = [this] {
            form1.unload();
            form1.show();
        };
        form1.show();
    }
    ~Program() { merging::reopenMainWindow = nullptr; }
};

static void clickRow(const char *window, const char *list, int row, int x = 60)
{
    auto *view = control<QAbstractItemView>(window, list);
    const QRect place = view->visualRect(view->model()->index(row, 0));
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, QPoint(place.left() + x, place.center().y()));
}

// Opens a folder below the one that Dir1 stands on.
static void openFolder(const QString &name)
{
    auto *Dir1 = control<FolderList>("Premerge", "Dir1");
    QTreeWidgetItem *row = Dir1->findItems(name, Qt::MatchExactly | Qt::MatchRecursive).constLast();
    Dir1->scrollToItem(row);
    const QPoint place = Dir1->visualItemRect(row).center();
    QTest::mouseClick(Dir1->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(Dir1->viewport(), Qt::LeftButton, {}, place);
}

static bool isArmed()
{
    return control<QPushButton>("Premerge", "Command1")->isEnabled();
}

static void openSource(const QString &name = "other")
{
    chooseMenu("merging");
    openFolder(name);
    clickRow("Premerge", "File1", 0);
    click("Premerge", "Command1");
}

static QStringList titles()
{
    const auto *List1 = control<QListWidget>("merging", "List1");
    QStringList titles;
    for (int row = 0; row < List1->count(); row += 1)
        titles += (List1->item(row)->checkState() == Qt::Checked ? "+" : "") + List1->item(row)->text();
    return titles;
}

static QRgb preview()
{
    const QPixmap &picture = control<ImageFrame>("merging", "Image1")->picture();
    return picture.isNull() ? 0 : picture.toImage().pixel(5, 5);
}

class MergeWindowTest : public QObject
{
    Q_OBJECT
private slots:
    void premerge_isArmedByAnyFileAndStaysSo()
    {
        const Program program;
        put("empty/a.txt", "");
        chooseMenu("merging");
        QCOMPARE(control<FolderList>("Premerge", "Dir1")->path(), QDir::currentPath());
        openFolder("empty");
        QCOMPARE(control<FileList>("Premerge", "File1")->model()->rowCount(), 0);
        QVERIFY(!isArmed());
        openFolder(QDir::current().dirName());
        openFolder("other");
        QVERIFY(!isArmed());
        clickRow("Premerge", "File1", 0);
        openFolder(QDir::current().dirName());
        QVERIFY(isArmed());
        click("Premerge", "Command2");
        QCOMPARE(Module1.mergeSourcePath, QString());
        chooseMenu("merging");
        QVERIFY(!isArmed());
        QVERIFY(!windowNamed("merging"));
    }

    void drive_thatIsGone_leavesTheListsWhereTheyAre()
    {
        const Program program;
        const QString home = qEnvironmentVariable("HOME");
        QDir().mkdir("home");
        qputenv("HOME", QFile::encodeName(QDir::currentPath() + "/home"));
        chooseMenu("merging");
        qputenv("HOME", home.toLocal8Bit());
        auto *Drive1 = control<DriveList>("Premerge", "Drive1");
        const auto *Dir1 = control<FolderList>("Premerge", "Dir1");
        QTest::keyClick(Drive1, Qt::Key_Down);
        QCOMPARE(Dir1->path(), QDir::currentPath() + "/home");
        QTest::keyClick(Drive1, Qt::Key_Up);
        QCOMPARE(control<FileList>("Premerge", "File1")->path(), QDir::currentPath());
        QVERIFY(QDir().rmdir("home"));
        const BoxAnswers boxes;
        QTest::keyClick(Drive1, Qt::Key_Down);
        QVERIFY(boxes.texts.join("").contains("/home cannot be read."));
        QCOMPARE(Dir1->path(), QDir::currentPath());
        QCOMPARE(Drive1->currentText(), "/");
    }

    void list_ticksAndShowsPagesByPlace()
    {
        const Program program;
        openSource();
        QVERIFY(!windowNamed("Premerge"));
        QCOMPARE(Module1.mergeSourcePath, QDir::toNativeSeparators(QDir::currentPath() + "/other"));
        auto *List1 = control<QListWidget>("merging", "List1");
        List1->setFocus();
        QTest::qWait(20);
        QCOMPARE(preview(), 0u);
        QTest::keyClick(List1, Qt::Key_Down);
        QVERIFY(qRed(preview()) > 200);
        clickRow("merging", "List1", 1, 10);
        QVERIFY(qGreen(preview()) > 200);
        QTest::keyClick(List1, Qt::Key_Up);
        QTest::keyClick(List1, Qt::Key_Space);
        clickRow("merging", "List1", 2);
        QCOMPARE(preview(), 0u);
        QCOMPARE(titles(), QStringList({"+Zebra", "+Apple", "Apple"}));
        clickRow("merging", "List1", 0, 10);
        QVERIFY(qRed(preview()) > 200);
        QCOMPARE(titles(), QStringList({"Zebra", "+Apple", "Apple"}));

        put("bare/index.html", "");
        const BoxAnswers boxes;
        openSource("bare"); // while the other list is open
        QVERIFY(boxes.texts.join("").endsWith("bare/spartiti/archivio.js: there is no such file"));
        QCOMPARE(titles(), QStringList());
    }

    void absorb_addsTheTickedSongsAndReopensTheMainWindowOnTheLast()
    {
        const Program program;
        QTest::keyClicks(control("Form1", "Text3"), "unsaved");
        openSource();
        clickRow("merging", "List1", 2, 10);
        clickRow("merging", "List1", 0, 10);
        put("spartiti/4L.jpg", "from before");
        const BoxAnswers boxes({QMessageBox::No, QMessageBox::Yes, QMessageBox::Ok, QMessageBox::Yes});
        click("merging", "Command2");
        QCOMPARE(boxes.texts,
                 QStringList("The selected tracks will be added to your archive. You want to proceed?"));
        {
            const FullDisk disk(20);
            click("merging", "Command2");
        }
        QVERIFY(boxes.texts.last().startsWith("Nothing was absorbed; the archive is as it was before.\n"));
        QCOMPARE(namesIn("spartiti"), QStringList({"4L.jpg", "archivio.js"}));
        click("merging", "Command2");
        QCOMPARE(boxes.texts.size(), 6);
        QVERIFY(boxes.texts[4].contains("spartiti/4L.jpg is now spartiti/4L (old 1).jpg"));
        QVERIFY(boxes.texts[5].startsWith("The merger of the archives has been completed."));
        QCOMPARE(contents("spartiti/archivio.js"),
                 archiveOf({"One|A|tag|3", "Two|unsaved||0", "Zebra|||1", "Apple|||3"}));
        QCOMPARE(contents("spartiti/3L.jpg"), contents("other/spartiti/1L.jpg"));
        QCOMPARE(control<QLabel>("Form1", "Label6")->text(), "There are 4 titles");
        QCOMPARE(control<TextBox>("Form1", "Text1")->text(), "4");
        QCOMPARE(titles(), QStringList({"+Zebra", "Apple", "+Apple"}));

        click("merging", "Command2");
        QCOMPARE(control<QLabel>("Form1", "Label6")->text(), "There are 6 titles");
        click("merging", "Command1");
        QVERIFY(!windowNamed("merging"));
    }
};

WINDOW_TEST_MAIN(MergeWindowTest)
#include "merge_window_test.moc"

// The windows that copy a file the person picked: mp3 and what it shares with the page pickers.

#include "browse/file_list.h"
#include "browse/folder_list.h"
#include "main/rooms.h"
#include "support/ratio.h"
#include "support/windows.h"

#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTreeWidget>

#include <cstdlib>

static void openEmptyWindow()
{
    QWidget window;
    window.setFixedSize(920, 510);
    const auto place = [&window](QWidget *widget, int k) {
        widget->setParent(&window);
        widget->setGeometry(k % 6 * 150, k / 6 * 60, 140, 50);
    };
    for (int k = 0; k < 34; k += 1)
        place(new QPushButton("Rock"), k);
    for (int k = 34; k < 37; k += 1)
        place(new QLabel("text"), k);
    place(new QListWidget, 37);
    place(new QTreeWidget, 38);
    window.show();
    window.grab();
}

static void compareOpening()
{
    click("Form1", "Command2");
    compare(
        {"open mp3", "a window of 39 widgets", 1.5, 31},
        [] {
            windowNamed("mp3")->close();
            click("Form1", "Command2");
            windowNamed("mp3")->grab();
        },
        openEmptyWindow);
}

static void compareClick()
{
    put("song.mp3", QByteArray(10'000'000, 'm'));
    windowNamed("mp3")->close();
    click("Form1", "Command2");
    clickFile("mp3", "song.mp3");
    compare(
        {"a category, 10 MB", "cp and sync", 1.3, 31},
        [] {
            click("Form1", "Command2");
            click("mp3", indexed("Command3", 7));
        },
        [] {
            if (std::system("cp song.mp3 spartiti/audio/copy.mp3 && sync spartiti/audio/copy.mp3") != 0)
                qFatal("cp failed");
        });
}

static void compareListing()
{
    for (int k = 0; k < 20'000; k += 1)
        put(QStringLiteral("many/Scan %1 of a page.jpg").arg(k), {});
    FolderList folders(nullptr);
    FileList files(nullptr);
    files.setPattern("*.jpg");
    QObject::connect(&folders, &FolderList::folderChanged, &files, &FileList::setPath);
    files.show();
    folders.show();
    compare(
        {"list 20,000 files", "QDir, twice, unsorted", 3},
        [&] {
            folders.setPath("many");
            folders.grab();
            files.grab();
        },
        [] {
            (void)QDir("many").entryList({"*.jpg"}, QDir::Files, QDir::NoSort);
            (void)QDir("many").entryList(QDir::Dirs, QDir::NoSort);
        });
}

int main(int argc, char **argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    applyLook(app);
    const TestFolder folder;
    putArchive({"One|||0"});
    putCategories();
    QDir().mkpath("spartiti/audio");
    Rooms rooms;
    rooms.form1.show();
    compareOpening();
    compareClick();
    compareListing();
    return 0;
}

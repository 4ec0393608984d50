// The list of songs on 9,999 songs with 20,000 pages.
#include "archive/archive_file.h"
#include "files/data_folder.h"
#include "look/look.h"
#include "songs/edits.h"
#include "songs/song_table.h"
#include "songs/songs_view.h"
#include "songs/songs_window.h"
#include "support/ratio.h"
#include "support/test_folder.h"

#include <QApplication>
#include <QDirIterator>
#include <QHeaderView>
#include <QLineEdit>
#include <QStandardItemModel>

#include <cstdio>
#include <malloc.h>

static constexpr QSize tableSize(880, 560);
static const int all = Module1State::lastRecord;

// Every song has "all" in its tags, every second one "half", every hundredth "few".
static QStringList records()
{
    QStringList records;
    for (int n = 1; n <= all; n += 1) {
        const QString half = n % 2 == 0 ? " half" : "";
        const QString few = n % 100 == 0 ? " few" : "";
        records += QStringLiteral("A title of usual length, %1|Søme author %2|all%3%4|%5")
                       .arg(n * 7919 % all)
                       .arg(n % 700)
                       .arg(half, few)
                       .arg(n % 34);
    }
    return records;
}

static void putFiles()
{
    for (int n = 1; n <= all + 1; n += 1) {
        put(pagePath(n, Page::Left), "page");
        put(pagePath(n, Page::Right), "page");
    }
    for (int n = 1; n <= all; n += 50)
        put(recordingPath(n), "recording");
}

static QList<int> everySong()
{
    QList<int> songs;
    for (int n = 1; n <= all; n += 1)
        songs += n;
    return songs;
}

static void compareSearching(Edits &edits)
{
    SongTable table(edits);
    table.readDisk();
    SongsView view(table, nullptr);
    view.resize(tableSize);
    view.show();
    view.grab();

    std::vector<Folded> folded;
    for (size_t n = 1; n <= static_cast<size_t>(all); n += 1)
        folded.push_back(fold(Module1.recTitle[n] + '\n' + Module1.recAuthor[n] + '\n' + Module1.recTags[n]));
    const std::pair<const char *, const char *> searches[] = {
        {"few", "a keystroke in Find that leaves 1 %, till the model is right"},
        {"half", "the same, leaves half"},
        {"all", "the same, leaves all"},
        {"title some half", "the same, three words"},
    };
    for (const auto &[typed, name] : searches) {
        const Query query(typed);
        compare(
            {name, "a plain loop over the same folded texts", 3, 41, Clock::Processor,
             [&] { table.find(""); }},
            [&] { table.find(typed); },
            [&] {
                QList<int> found;
                for (size_t i = 0; i < folded.size(); i += 1) {
                    bool hasAll = true;
                    for (const Folded &word : query.words())
                        hasAll = hasAll && folded[i].bare.contains(word.bare);
                    if (hasAll)
                        found += static_cast<int>(i) + 1;
                }
                if (found.isEmpty())
                    qFatal("nothing found");
            });
    }
}

static void comparePainting(Edits &edits)
{
    SongTable table(edits);
    table.readDisk();
    SongsView view(table, nullptr);
    view.resize(tableSize);
    view.show();
    view.grab();
    for (const char *typed : {"few", "half", "all", "title"}) {
        const QByteArray name = "a keystroke in Find, \"" + QByteArray(typed) + "\", till it is painted";
        compare(
            {name, "painting the table without a search", 1.3, 41, Clock::Processor,
             [&] {
                 table.find("");
                 view.grab();
             }},
            [&] {
                table.find(typed);
                view.grab();
            },
            [&] { view.grab(); });
    }
}

static void listFolder(const QString &folder)
{
    QStringList names;
    for (QDirIterator files(folder, QDir::Files); files.hasNext();)
        names += files.nextFileInfo().fileName();
    if (names.isEmpty())
        qFatal("an empty folder");
}

// A table of items with the same texts.
static void showPlainTable(const QList<QStringList> &rows)
{
    QStandardItemModel items(static_cast<int>(rows.size()), songColumns);
    for (int row = 0; row < items.rowCount(); row += 1) {
        for (int column = 0; column < songColumns; column += 1)
            items.setItem(row, column, new QStandardItem(rows[row][column]));
    }
    QTableView view;
    view.setModel(&items);
    view.resize(tableSize);
    view.show();
    view.grab();
}

static QList<QStringList> textsOf(const SongTable &table)
{
    QList<QStringList> rows;
    for (int row = 0; row < table.rowCount(); row += 1) {
        QStringList cells;
        for (int column = 0; column < songColumns; column += 1)
            cells += table.index(row, column).data().toString();
        rows += cells;
    }
    return rows;
}

static SongsWindow *openWindow(Edits &edits)
{
    auto *window = new SongsWindow(edits, {}, {});
    window->comeForward();
    window->grab();
    return window;
}

static void compareOpening(Edits &edits)
{
    SongTable table(edits);
    table.readDisk();
    const QList<QStringList> rows = textsOf(table);
    compare(
        {"open Songs on 9,999 songs, 20,000 pages", "list the folders, fill a table of items", 1.5},
        [&] { delete openWindow(edits); },
        [&] {
            listFolder(dataFolder());
            listFolder(recordingsFolder());
            showPlainTable(rows);
        });
}

static double megabytesInUse()
{
    const auto memory = mallinfo2();
    return static_cast<double>(memory.uordblks + memory.hblkhd) / (1 << 20);
}

static void printMemory(const char *what, double megabytes, double limit)
{
    std::printf("| %s | %.1f | | | | %.0f |\n", what, megabytes, limit);
}

static void measureMemory(Edits &edits)
{
    delete openWindow(edits); // fonts and whatever else is loaded once
    const double before = megabytesInUse();
    SongsWindow *window = openWindow(edits);
    window->findChild<QLineEdit *>("Find")->setText("a");
    window->findChild<QTableView *>("Songs")->sortByColumn(1, Qt::AscendingOrder);
    window->grab();
    printMemory("memory of the open window Songs, searched and sorted, MB", megabytesInUse() - before, 12);
    delete window;
    printMemory("memory of the closed window Songs, MB", megabytesInUse() - before, 0);
}

static void compareSettingMany(Edits &edits)
{
    SongTable table(edits);
    table.readDisk();
    const QList<int> songs = everySong().first(3000);
    int category = 0;
    compare(
        {"set the category of 3,000 songs, the list open (at most 100 ms)", "list the folders", 4},
        [&] {
            category = category % 33 + 1;
            edits.set(Field::Category, songs, QStringList(songs.size(), QString::number(category)));
        },
        [] { listFolder(dataFolder()); });
}

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    applyLook(app);
    const TestFolder folder;
    putArchive(records());
    putFiles();
    if (!loadArchive().result.ok())
        qFatal("no archive");
    Edits edits;
    edits.loaded();
    compareSearching(edits);
    comparePainting(edits);
    compareOpening(edits);
    measureMemory(edits);
    compareSettingMany(edits);
}

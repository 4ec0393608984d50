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
#include <QPixmapCache>
#include <QTableView>

#include <cstdio>
#include <ctime>
#include <malloc.h>

static constexpr QSize tableSize(880, 560);
static const int all = Module1State::lastRecord;

// Every song has "all" in its tags, every second one "half", every hundredth "few"; all tags are of one
// length, so that what is painted is as much, whichever are found.
static QStringList records()
{
    QStringList records;
    for (int n = 1; n <= all; n += 1) {
        const QString half = n % 2 == 0 ? "half" : "full";
        const QString few = n % 100 == 0 ? "few" : "any";
        records += QStringLiteral("A title of usual length, %1|Søme author %2|all %3 %4|%5")
                       .arg(n * 7919 % all)
                       .arg(n % 700)
                       .arg(half, few)
                       .arg(n % 34);
    }
    return records;
}

// Every tenth right page is the empty sheet, and every other one is as long as that.
static void putFiles()
{
    put(emptyPagePath(), "an empty sheet");
    for (int n = 1; n <= all + 1; n += 1) {
        put(pagePath(n, Page::Left), "page");
        put(pagePath(n, Page::Right), n % 10 == 0 ? "an empty sheet" : "no empty sheet");
    }
    for (int n = 1; n <= all; n += 50)
        put(recordingPath(n), "recording");
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
    for (const char *typed : {"few", "half", "all", "title", "a", "none"}) {
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

// A table that does nothing but hold these texts.
class PlainTable : public QAbstractTableModel
{
public:
    explicit PlainTable(const QList<QStringList> &rows)
        : rows_(rows)
    {
    }

    int rowCount(const QModelIndex &) const override { return static_cast<int>(rows_.size()); }
    int columnCount(const QModelIndex &) const override { return songColumns; }
    QVariant data(const QModelIndex &index, int role) const override
    {
        return role == Qt::DisplayRole ? rows_[index.row()][index.column()] : QVariant();
    }

private:
    const QList<QStringList> &rows_;
};

static void showPlainTable(const QList<QStringList> &rows)
{
    PlainTable table(rows);
    QTableView view;
    view.setModel(&table);
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
        {"open Songs on 9,999 songs, 20,000 pages", "list the folders, show the same texts in a plain table",
         1.5},
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

// A row of a figure that has no baseline.
static void print(const QByteArray &what, double figure, double limit)
{
    std::printf("| %s | %.1f | | | | %.0f |\n", what.constData(), figure, limit);
    std::fflush(stdout);
}

static SongsWindow *useWindow(Edits &edits)
{
    SongsWindow *window = openWindow(edits);
    window->findChild<QLineEdit *>("Find")->setText("a");
    window->findChild<QTableView *>("Songs")->sortByColumn(1, Qt::AscendingOrder);
    window->grab();
    return window;
}

static void measureMemory(Edits &edits)
{
    static constexpr int openings = 20;
    delete useWindow(edits); // fonts and whatever else is loaded once
    QPixmapCache::clear(); // of what it may hold it takes a part at each opening
    const double before = megabytesInUse();
    SongsWindow *window = useWindow(edits);
    print("memory of the open window Songs, searched and sorted, MB", megabytesInUse() - before, 12);
    delete window;
    for (int i = 0; i < openings; i += 1)
        delete useWindow(edits);
    QPixmapCache::clear();
    const double kept = (megabytesInUse() - before) / openings;
    print("memory that a closed window Songs leaves behind, MB", kept, 0);
}

// Of the songs that are shown, the first 3,000 are selected; till the window is painted.
static void measureSettingMany(Edits &edits)
{
    static constexpr int many = 3000;
    const std::unique_ptr<SongsWindow> window(useWindow(edits));
    auto *view = window->findChild<SongsView *>();
    view->selectionModel()->select(
        QItemSelection(view->model()->index(0, 0), view->model()->index(many - 1, songColumns - 1)),
        QItemSelectionModel::ClearAndSelect);
    const QList<int> songs = view->chosenSongs();
    int text = 0;
    for (const auto &[field, name] : {std::pair(Field::Category, "category"), {Field::Tags, "tags"}}) {
        const auto column = field == Field::Category ? SongColumn::Category : SongColumn::Tags;
        view->sortByColumn(static_cast<int>(column), Qt::AscendingOrder);
        std::vector<double> times;
        for (int round = 0; round < 15; round += 1) {
            text = text % 33 + 1;
            const std::clock_t start = std::clock();
            edits.set(field, songs, QStringList(songs.size(), QString::number(text)));
            window->grab();
            times.push_back(static_cast<double>(std::clock() - start) / (CLOCKS_PER_SEC / 1e3));
        }
        print("set the " + QByteArray(name)
                  + " of 3,000 songs, the list sorted by them, till it is painted, ms",
              *std::max_element(times.begin(), times.end()), 100);
    }
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
    measureSettingMany(edits);
}

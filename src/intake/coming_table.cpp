#include "intake/coming_table.h"

#include "archive/Module1.h"
#include "format/typed_text.h"

#include <QFileInfo>

#include <algorithm>

using Column = ComingColumn;

// A change of the songs: all of them before and after, which share what is the same.
class ComingStep : public QUndoCommand
{
public:
    ComingStep(ComingTable &table, const QString &text, QList<ComingSong> after)
        : QUndoCommand(text)
        , table_(table)
        , before_(table.songs())
        , after_(std::move(after))
    {
    }
    void undo() override { table_.store(before_); }
    void redo() override { table_.store(after_); }

private:
    ComingTable &table_;
    const QList<ComingSong> before_;
    const QList<ComingSong> after_;
};

ComingTable::ComingTable()
{
    static constexpr int steps = 100;
    stack_.setUndoLimit(steps);
}

// A view keeps its place where only texts have changed.
void ComingTable::store(const QList<ComingSong> &songs)
{
    const bool isSameSize = songs.size() == songs_.size();
    if (!isSameSize)
        beginResetModel();
    songs_ = songs;
    if (!isSameSize)
        endResetModel();
    else if (!songs.isEmpty())
        emit dataChanged(index(0, 0), index(rowCount() - 1, comingColumns - 1));
}

int ComingTable::tickedCount() const
{
    return static_cast<int>(
        std::count_if(songs_.begin(), songs_.end(), [](const auto &song) { return song.isTicked; }));
}

ComingPage ComingTable::pageAt(const QModelIndex &cell) const
{
    if (!cell.isValid())
        return {};
    const ComingSong &song = songs_[cell.row()];
    if (Column(cell.column()) == Column::Left)
        return song.left;
    return Column(cell.column()) == Column::Right ? song.right : ComingPage{};
}

void ComingTable::replaceSongs(const QList<ComingSong> &songs, const QString &step)
{
    if (songs != songs_)
        stack_.push(new ComingStep(*this, step, songs));
}

void ComingTable::replaceRows(const QList<int> &rows, const QList<ComingSong> &songs, const QString &step)
{
    QList<ComingSong> after;
    for (int row = 0; row < songs_.size(); row += 1) {
        if (row == rows.value(0, -1))
            after += songs;
        if (!rows.contains(row))
            after += songs_[row];
    }
    replaceSongs(after, step);
}

void ComingTable::change(const QList<int> &rows, const QString &step,
                         const std::function<void(ComingSong &)> &edit)
{
    QList<ComingSong> after = songs_;
    for (const int row : rows)
        edit(after[row]);
    replaceSongs(after, step);
}

static void readName(ComingSong &song, const Reading &reading)
{
    if (song.isNamed)
        return;
    const auto [title, author] = songNameOf(song.name, reading.namesAre, reading.leaveOutNumbers);
    song.title = title;
    song.author = author;
}

void ComingTable::readNames(const Reading &reading)
{
    QList<ComingSong> after = songs_;
    for (ComingSong &song : after)
        readName(song, reading);
    replaceSongs(after, "names");
}

void ComingTable::addNote(int row, const QString &words, bool untick)
{
    ComingSong &song = songs_[row];
    song.addNote(words);
    song.isTicked = song.isTicked && !untick;
    emit dataChanged(index(row, 0), index(row, comingColumns - 1));
}

void ComingTable::keepOnly(const QList<ComingSong> &songs)
{
    stack_.clear();
    beginResetModel();
    songs_ = songs;
    endResetModel();
}

void ComingTable::setTicked(const QList<int> &rows, bool ticked)
{
    change(rows, "ticks", [&](ComingSong &song) { song.isTicked = ticked; });
}

void ComingTable::setText(const QList<int> &rows, Column column, const QString &text)
{
    const QString carried = carriedByFiles(text).text;
    if (column == Column::Title)
        change(rows, "title", [&](ComingSong &song) {
            song.isNamed = song.isNamed || song.title != carried;
            song.title = carried;
        });
    else if (column == Column::Author)
        change(rows, "author", [&](ComingSong &song) {
            song.isNamed = song.isNamed || song.author != carried;
            song.author = carried;
        });
    else if (column == Column::Tags)
        change(rows, "tags", [&](ComingSong &song) { song.tags = carried; });
}

void ComingTable::setCategory(const QList<int> &rows, int category)
{
    change(rows, "category", [&](ComingSong &song) { song.category = category; });
}

void ComingTable::exchangePages(const QList<int> &rows)
{
    change(rows, "exchange of pages", [](ComingSong &song) { std::swap(song.left, song.right); });
}

static void turnPage(ComingPage &page)
{
    if (!page.exists())
        return;
    int &turns = page.part == ComingPage::Whole ? page.turns : page.turnsOfPart;
    turns = (turns + 1) % 4;
}

void ComingTable::turn(const QModelIndexList &pages)
{
    QList<ComingSong> after = songs_;
    for (const QModelIndex &page : pages) {
        if (Column(page.column()) == Column::Left)
            turnPage(after[page.row()].left);
        else if (Column(page.column()) == Column::Right)
            turnPage(after[page.row()].right);
    }
    replaceSongs(after, "turn");
}

bool ComingTable::canBeginSongAt(const QModelIndex &page) const
{
    return Column(page.column()) == Column::Right && pageAt(page).exists()
        && songs_[page.row()].left.exists();
}

static QString nameOf(const ComingPage &page)
{
    return QFileInfo(page.file).completeBaseName();
}

void ComingTable::beginSongAt(const QModelIndex &page)
{
    ComingSong first = songs_[page.row()];
    ComingSong second;
    second.isTicked = first.isTicked;
    second.left = std::exchange(first.right, {});
    second.category = first.category;
    second.tags = first.tags;
    second.name = nameOf(second.left);
    readName(second, {});
    replaceRows({page.row()}, {first, second}, "new song");
}

// Of each pair, the row that stays and the one that goes to it; none where that cannot be.
ComingTable::Pairs ComingTable::pairsOf(const QList<int> &rows) const
{
    Pairs pairs;
    if (rows.size() == 1 && rows[0] > 0)
        pairs += {rows[0] - 1, rows[0]};
    for (qsizetype i = 0; i + 1 < rows.size(); i += 2)
        pairs += {rows[i], rows[i + 1]};
    const auto isTooMuch = [this](const auto &pair) {
        const ComingSong &one = songs_[pair.first];
        const ComingSong &other = songs_[pair.second];
        return one.pages().size() + other.pages().size() > 2
            || (!one.recording.isEmpty() && !other.recording.isEmpty());
    };
    return std::any_of(pairs.begin(), pairs.end(), isTooMuch) ? Pairs() : pairs;
}

bool ComingTable::canJoin(const QList<int> &rows) const
{
    return !pairsOf(rows).isEmpty();
}

void ComingTable::join(const QList<int> &rows)
{
    QList<ComingSong> after = songs_;
    const Pairs pairs = pairsOf(rows);
    for (auto pair = pairs.rbegin(); pair != pairs.rend(); ++pair) {
        ComingSong &song = after[pair->first];
        const ComingSong joined = after[pair->second];
        const QList<ComingPage> pages = song.pages() + joined.pages();
        song.left = pages.value(0);
        song.right = pages.value(1);
        if (song.recording.isEmpty())
            song.recording = joined.recording;
        after.removeAt(pair->second);
    }
    replaceSongs(after, "join");
}

bool ComingTable::canHalve(const QList<int> &rows) const
{
    return std::any_of(rows.begin(), rows.end(), [this](int row) {
        const QList<ComingPage> pages = songs_[row].pages();
        return std::any_of(pages.begin(), pages.end(),
                           [](const ComingPage &page) { return page.part == ComingPage::Whole; });
    });
}

// Each page that is whole becomes two.
static QList<ComingPage> halved(const QList<ComingPage> &pages)
{
    QList<ComingPage> halves;
    for (ComingPage page : pages) {
        if (page.part != ComingPage::Whole) {
            halves += page;
            continue;
        }
        for (const auto part : {ComingPage::LeftHalf, ComingPage::RightHalf}) {
            page.part = part;
            halves += page;
        }
    }
    return halves;
}

// A row of two scans becomes two rows.
static QList<ComingSong> halved(const ComingSong &song)
{
    const QList<ComingPage> pages = halved(song.pages());
    QList<ComingSong> songs;
    for (qsizetype page = 0; page < pages.size(); page += 2) {
        ComingSong piece = song;
        piece.left = pages[page];
        piece.right = pages.value(page + 1);
        if (page > 0) {
            piece.recording.clear();
            piece.name += QStringLiteral(" (%1)").arg(page / 2 + 1);
            piece.title += QStringLiteral(" (%1)").arg(page / 2 + 1);
        }
        songs += piece;
    }
    return songs.isEmpty() ? QList{song} : songs;
}

void ComingTable::halve(const QList<int> &rows)
{
    QList<ComingSong> after;
    for (int row = 0; row < songs_.size(); row += 1)
        after += rows.contains(row) ? halved(songs_[row]) : QList{songs_[row]};
    replaceSongs(after, "halving");
}

int ComingTable::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(songs_.size());
}

int ComingTable::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : comingColumns;
}

static QString nameOfPage(const ComingPage &page)
{
    static const char *const parts[] = {"", ", left half", ", right half"};
    if (!page.exists())
        return {};
    QString name = QFileInfo(page.file).fileName() + parts[page.part];
    if (page.pdfPage > 0)
        name += QStringLiteral(", page %1").arg(page.pdfPage);
    if (page.turns + page.turnsOfPart > 0)
        name += ", turned";
    return name;
}

static QString nameOfCategory(int category)
{
    return category == 0 ? QString() : Module1.categoryName[static_cast<size_t>(category)];
}

static QString textOf(const ComingSong &song, Column column)
{
    switch (column) {
    case Column::Left:
        return nameOfPage(song.left);
    case Column::Right:
        return nameOfPage(song.right);
    case Column::Recording:
        return QFileInfo(song.recording).fileName();
    case Column::Title:
        return song.title;
    case Column::Author:
        return song.author;
    case Column::Tags:
        return song.tags;
    case Column::Category:
        return nameOfCategory(song.category);
    case Column::Note:
        return song.note;
    case Column::Tick:
        break;
    }
    return {};
}

QVariant ComingTable::data(const QModelIndex &index, int role) const
{
    const ComingSong &song = songs_[index.row()];
    const auto column = Column(index.column());
    if (column == Column::Tick) {
        if (role == Qt::CheckStateRole)
            return song.isTicked ? Qt::Checked : Qt::Unchecked;
        return role == Qt::AccessibleTextRole ? (song.isTicked ? "brought in" : "left out") : QVariant();
    }
    if (role == Qt::EditRole && column == Column::Category)
        return song.category;
    if (role == Qt::DisplayRole || role == Qt::EditRole)
        return textOf(song, column);
    if (role == Qt::ToolTipRole)
        return textOf(song, column).toHtmlEscaped();
    return {};
}

QVariant ComingTable::headerData(int section, Qt::Orientation orientation, int role) const
{
    static const char *const names[comingColumns] = {"",       "Left", "Right",    "Recording", "Title",
                                                     "Author", "Tags", "Category", "Note"};
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole)
        return names[section];
    return {};
}

Qt::ItemFlags ComingTable::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags usual = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    switch (Column(index.column())) {
    case Column::Tick:
        return usual | Qt::ItemIsUserCheckable;
    case Column::Title:
    case Column::Author:
    case Column::Tags:
    case Column::Category:
        return usual | Qt::ItemIsEditable;
    default:
        return usual;
    }
}

bool ComingTable::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role == Qt::CheckStateRole)
        setTicked({index.row()}, value.toInt() == Qt::Checked);
    else if (role == Qt::EditRole && Column(index.column()) == Column::Category)
        setCategory({index.row()}, value.toInt());
    else if (role == Qt::EditRole)
        setText({index.row()}, Column(index.column()), value.toString());
    return true;
}

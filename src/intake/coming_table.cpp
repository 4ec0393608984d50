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

void ComingTable::readNames(const Reading &reading)
{
    QList<ComingSong> after = songs_;
    KnownSongs known;
    for (ComingSong &song : after) {
        song.readName(reading.namesAre, reading.leaveOutNumbers);
        known.look(song);
    }
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
    if (column == Column::Title) {
        KnownSongs known;
        change(rows, "title", [&](ComingSong &song) {
            song.isNamed = song.isNamed || song.title != carried;
            song.title = carried;
            const bool wasTicked = song.isTicked;
            known.look(song);
            song.isTicked = wasTicked; // who typed it may know better
        });
    } else if (column == Column::Author)
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

static QString noteOf(ComingSong song)
{
    if (song.known > 0)
        song.addNote(QStringLiteral("in the archive as no. %1").arg(song.known));
    return song.note;
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
        return noteOf(song);
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

#include "playlists/edited_list.h"

#include "archive/Module1.h"

#include <QUndoCommand>

#include <algorithm>
#include <numeric>
#include <utility>

static const QString &titleOf(int record)
{
    return Module1.recTitle[static_cast<size_t>(record)];
}

static const QString &numberOf(const ListedSong &song)
{
    return Module1.recNumber[static_cast<size_t>(song.record)];
}

ListedSong storedSong(int record)
{
    return {record, titleOf(record)};
}

ListedSong addedSong(int record)
{
    return {record, titleOf(record) + " _" + QString::number(record)};
}

int recordOfTitle(const QString &title)
{
    int record = Module1.recCount;
    while (record > 0 && titleOf(record) != title)
        record -= 1;
    return record;
}

class EditedList::Command : public QUndoCommand
{
public:
    Command(EditedList &list, Step step)
        : list_(list)
        , step_(std::move(step))
    {
    }

    void redo() override { put(step_.removed, step_.inserted, step_.after); }
    void undo() override { put(step_.inserted, step_.removed, step_.before); }

private:
    void put(const QList<ListedSong> &removed, const QList<ListedSong> &inserted, const Selection &selected)
    {
        if (step_.exchange)
            step_.exchange();
        list_.put(step_.first, removed.size(), inserted, selected);
    }

    EditedList &list_;
    const Step step_;
};

void EditedList::take(const Step &step)
{
    steps_.push(new Command(*this, step));
}

void EditedList::put(int first, qsizetype removed, const QList<ListedSong> &inserted,
                     const Selection &selected)
{
    songs_ = songs_.first(first) + inserted + songs_.sliced(first + removed);
    shown_({first, static_cast<int>(removed), static_cast<int>(inserted.size()), selected});
}

// The rows from `first` on, so many.
static QList<int> rowsFrom(int first, qsizetype count)
{
    QList<int> rows(count);
    std::iota(rows.begin(), rows.end(), first);
    return rows;
}

void EditedList::add(const QList<ListedSong> &songs, std::optional<int> place)
{
    if (place)
        take({*place, {}, songs, QList<int>(), rowsFrom(*place, songs.size())});
    else
        take({static_cast<int>(songs_.size()), {}, songs, {}, {}});
}

void EditedList::remove(const QList<int> &rows)
{
    if (rows.isEmpty())
        return;
    const QList<ListedSong> songs = songs_.mid(rows.first(), rows.last() + 1 - rows.first());
    QList<ListedSong> kept = songs;
    for (const int row : QList<int>(rows.rbegin(), rows.rend()))
        kept.removeAt(row - rows.first());
    take({rows.first(), songs, kept, rows, QList<int>()});
}

void EditedList::move(const QList<int> &rows, int place)
{
    if (rows.isEmpty())
        return;
    const int first = qMin(place, rows.first());
    const int end = qMax(place, rows.last() + 1);
    QList<ListedSong> above;
    QList<ListedSong> moved;
    QList<ListedSong> below;
    for (int row = first; row < end; row += 1)
        (rows.contains(row) ? moved : row < place ? above : below) += songs_[row];
    const QList<int> after = rowsFrom(first + static_cast<int>(above.size()), moved.size());
    if (after != rows)
        take({first, songs_.mid(first, end - first), above + moved + below, rows, after});
}

void EditedList::moveUp(const QList<int> &rows)
{
    if (rows.isEmpty() || rows.first() == 0)
        return;
    const int first = rows.first() - 1;
    const QList<ListedSong> before = songs_.mid(first, rows.last() + 1 - first);
    QList<ListedSong> songs = before;
    QList<int> after;
    for (const int row : rows) {
        songs.swapItemsAt(row - first - 1, row - first);
        after += row - 1;
    }
    take({first, before, songs, rows, after});
}

void EditedList::moveDown(const QList<int> &rows)
{
    if (rows.isEmpty() || rows.last() == songs_.size() - 1)
        return;
    const int first = rows.first();
    const QList<ListedSong> before = songs_.mid(first, rows.last() + 2 - first);
    QList<ListedSong> songs = before;
    QList<int> after;
    for (const int row : QList<int>(rows.rbegin(), rows.rend())) {
        songs.swapItemsAt(row - first, row - first + 1);
        after.prepend(row + 1);
    }
    take({first, before, songs, rows, after});
}

void EditedList::replaceAll(const QList<ListedSong> &songs, const std::function<void()> &exchange)
{
    take({0, songs_, songs, QList<int>(), QList<int>(), exchange});
}

void EditedList::forget()
{
    songs_.clear();
    steps_.clear();
}

EditedList::Losses EditedList::losses() const
{
    Losses losses;
    for (const ListedSong &song : songs_) {
        if (song.isLeftOut || !numberOf(song).isEmpty())
            continue;
        const bool isRecord = song.record > 0 && song.record <= Module1.recCount;
        (isRecord ? losses.notYetSaved : losses.notInArchive) += 1;
    }
    return losses;
}

QString EditedList::text() const
{
    QString songs;
    for (const ListedSong &song : songs_)
        songs += numberOf(song) + ',';
    return songs + '#';
}

void EditedList::acceptLosses()
{
    for (ListedSong &song : songs_)
        song.isLeftOut = numberOf(song).isEmpty();
}

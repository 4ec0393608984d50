#include "songs/song_table.h"

#include "songs/edits.h"

#include <algorithm>

SongTable::SongTable(Edits &edits)
    : edits_(edits)
{
    connect(&edits, &Edits::changed, this, &SongTable::takeChanges);
    connect(&edits, &Edits::replaced, this, &SongTable::takeReplaced);
}

void SongTable::readDisk()
{
    disk_.read();
    const QList<SongChoice> choices = choicesOf(disk_);
    if (!choices.contains(choice_)) {
        const auto named = std::find_if(choices.begin(), choices.end(), [this](const SongChoice &choice) {
            return choice.kind == choice_.kind && choice.playlistName == choice_.playlistName;
        });
        choice_ = named == choices.end() ? SongChoice() : *named;
    }
    order_.updateFromDisk();
    chooseAnew();
}

void SongTable::choose(const SongChoice &choice)
{
    choice_ = choice;
    chooseAnew();
}

void SongTable::find(const QString &typed)
{
    search_.search(Query(typed));
    showFound();
}

void SongTable::sort(int column, Qt::SortOrder order)
{
    isSorted_ = column >= 0;
    order_.sortBy(isSorted_ ? SongColumn(column) : SongColumn::Number,
                  isSorted_ ? order : Qt::AscendingOrder);
    chooseAnew();
}

void SongTable::takeChanges(const QList<int> &records)
{
    search_.forget(records);
    order_.update(records);
    chooseAnew();
}

void SongTable::takeReplaced()
{
    search_.forgetAll();
    order_.updateAll();
    chooseAnew();
}

void SongTable::chooseAnew()
{
    const bool isInPlaylistsOrder = choice_.kind == SongChoice::OfPlaylist && !isSorted_;
    chosen_ = isInPlaylistsOrder ? songsOf(disk_.playlists()[choice_.playlist])
                                 : chosen(choice_, order_.records(), disk_, edits_);
    showFound();
}

void SongTable::showFound()
{
    QList<int> found = search_.found(chosen_);
    if (found == rows_) {
        if (!rows_.isEmpty())
            emit dataChanged(index(0, 0), index(rowCount() - 1, songColumns - 1));
        return;
    }
    beginResetModel();
    rows_ = std::move(found);
    endResetModel();
}

int SongTable::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int SongTable::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : songColumns;
}

static QVariant alignmentOf(SongColumn column)
{
    if (isText(column))
        return QVariant(Qt::AlignLeft | Qt::AlignVCenter);
    return QVariant((isTick(column) ? Qt::AlignHCenter : Qt::AlignRight) | Qt::AlignVCenter);
}

QVariant SongTable::data(const QModelIndex &index, int role) const
{
    const int n = songAt(index.row());
    const auto column = SongColumn(index.column());
    if (role == Qt::DisplayRole || role == Qt::EditRole)
        return textOf(column, n, disk_);
    if (role == Qt::TextAlignmentRole)
        return alignmentOf(column);
    if (role == Qt::ToolTipRole && column == SongColumn::Playlists)
        return disk_.playlistNamesOf(n).join('\n');
    if (role == Qt::AccessibleTextRole && isTick(column))
        return rankOf(column, n, disk_) ? "yes" : "no";
    return {};
}

QVariant SongTable::headerData(int section, Qt::Orientation orientation, int role) const
{
    return orientation == Qt::Horizontal && role == Qt::DisplayRole ? nameOf(SongColumn(section))
                                                                    : QVariant();
}

Qt::ItemFlags SongTable::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    return index.isValid() && fieldOf(SongColumn(index.column())) ? flags | Qt::ItemIsEditable : flags;
}

bool SongTable::setData(const QModelIndex &index, const QVariant &value, int role)
{
    const auto field = fieldOf(SongColumn(index.column()));
    if (role != Qt::EditRole || !field)
        return false;
    edits_.set(*field, {songAt(index.row())}, {value.toString()});
    return true;
}

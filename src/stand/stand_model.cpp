#include "stand/stand_model.h"

#include "stand/own_names.h"

#include <QLocale>

#include <utility>

using Task = PlannedFile::Task;

QString sizeText(qint64 bytes)
{
    static const QLocale english(QLocale::English);
    return english.formattedDataSize(bytes, bytes < 1000 ? 0 : 1, QLocale::DataSizeSIFormat);
}

static QString taskText(const PlannedFile &planned)
{
    switch (planned.task) {
    case Task::New:
        return "New";
    case Task::Changed:
        return planned.isNewerThere ? "Changed, newer on the stand" : "Changed";
    case Task::NotToBeCopied:
        return "Not copied: " + planned.reason;
    case Task::OnlyThere:
        return "Only on the stand";
    case Task::Same:
        break;
    }
    return "The same";
}

void StandModel::show(StandLook look)
{
    beginResetModel();
    look_ = std::move(look);
    endResetModel();
}

int StandModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(look_.plan.size());
}

int StandModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : columns;
}

QString StandModel::text(const PlannedFile &planned, int column) const
{
    const ListedFile &file = planned.file;
    const int song = songOfName(file.name);
    switch (column) {
    case What:
        return taskText(planned);
    case File:
        return file.name;
    case Song:
        return song > 0 ? QString::number(song) + ' ' + look_.titles.value(song) : QString();
    default:
        return file.size < 0 ? QString() : sizeText(file.size);
    }
}

QVariant StandModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    if (role == Qt::TextAlignmentRole && index.column() == Size)
        return int{Qt::AlignRight | Qt::AlignVCenter};
    const bool isText = role == Qt::DisplayRole || role == Qt::ToolTipRole;
    return isText ? text(look_.plan[index.row()], index.column()) : QVariant();
}

QVariant StandModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    static const QStringList names{"What", "File", "Song", "Size"};
    const bool isName = orientation == Qt::Horizontal && role == Qt::DisplayRole;
    return isName ? names.value(section) : QVariant();
}

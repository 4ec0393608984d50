#include "history/versions_model.h"

#include <QLocale>
#include <QMap>
#include <QRegularExpression>

VersionsModel::VersionsModel(const Versions &versions, QObject *parent)
    : QAbstractTableModel(parent)
    , versions_(versions)
{
    refresh();
}

void VersionsModel::refresh()
{
    beginResetModel();
    rows_ = versions_.all();
    compared_.clear();
    endResetModel();
}

int VersionsModel::rowOf(const QString &name) const
{
    const auto found = std::find_if(rows_.begin(), rows_.end(),
                                    [&](const Version &version) { return version.name() == name; });
    return found == rows_.end() ? -1 : static_cast<int>(found - rows_.begin());
}

const Differences &VersionsModel::comparison(int row) const
{
    if (!compared_.contains(row))
        compared_[row] = compareWithNow(rows_[row], pathOf(row));
    return compared_[row];
}

int VersionsModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int VersionsModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : columns;
}

QString nameForPeople(const QString &file)
{
    static const QMap<QString, QString> names{
        {"archivio.js", "Archive"},  {"playlist.js", "Playlists"},         {"midi.js", "MIDI settings"},
        {"generi.js", "Categories"}, {unsavedName, "Typed and not saved"}, {"m.jpg", "Empty sheet"},
    };
    if (names.contains(file))
        return names[file];
    static const QRegularExpression numbered("(\\d+)([LR]?)\\.");
    const auto parts = numbered.match(file);
    const QString what = parts.captured(2) == "L" ? "Left page of %1"
        : parts.captured(2) == "R"                ? "Right page of %1"
                                                  : "Recording of %1";
    return what.arg(parts.captured(1));
}

QVariant VersionsModel::data(const QModelIndex &index, int role) const
{
    const bool isTip = role == Qt::ToolTipRole;
    if (!index.isValid() || (role != Qt::DisplayRole && !isTip))
        return {};
    const Version &version = rows_[index.row()];
    if (index.column() == Until)
        return QLocale().toString(version.until.toLocalTime(),
                                  isTip ? "d MMMM yyyy HH:mm:ss" : "d MMM yyyy HH:mm");
    if (index.column() == File)
        return nameForPeople(version.file);
    const Differences &differs = comparison(index.row());
    if (differs.result.kind == Result::Kind::Damaged)
        return "damaged";
    return differs.result.ok() ? differs.summary : differs.result.text();
}

QVariant VersionsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    static const QStringList names{"Until", "What", "Since then"};
    static const QStringList tips{"until then it was so", "which file", "how the present one differs"};
    if (orientation != Qt::Horizontal || section >= names.size())
        return {};
    if (role == Qt::DisplayRole)
        return names[section];
    return role == Qt::ToolTipRole ? tips[section] : QVariant();
}

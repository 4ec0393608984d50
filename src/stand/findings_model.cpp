#include "stand/findings_model.h"

#include <utility>

void FindingsModel::show(ArchiveCheck check)
{
    beginResetModel();
    check_ = std::move(check);
    endResetModel();
}

int FindingsModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(check_.findings.size());
}

int FindingsModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : columns;
}

QVariant FindingsModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::ToolTipRole))
        return {};
    const Finding &finding = at(index.row());
    switch (index.column()) {
    case What:
        return finding.what;
    case Song:
        return finding.song > 0 ? QString::number(finding.song) + ' ' + check_.titles.value(finding.song)
                                : QString();
    default:
        return finding.meaning;
    }
}

QVariant FindingsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    static const QStringList names{"What", "Song", "What it means"};
    const bool isName = orientation == Qt::Horizontal && role == Qt::DisplayRole;
    return isName ? names.value(section) : QVariant();
}

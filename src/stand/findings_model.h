#pragma once

#include "stand/archive_check.h"

#include <QAbstractTableModel>

// What a check has found, as rows.
class FindingsModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Column { What, Song, Meaning, columns };

    using QAbstractTableModel::QAbstractTableModel;

    void show(ArchiveCheck check);
    const ArchiveCheck &check() const { return check_; }
    const Finding &at(int row) const { return check_.findings[row]; }

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    ArchiveCheck check_;
};

#pragma once

#include "history/comparison.h"
#include "history/versions.h"

#include <QAbstractTableModel>
#include <QHash>

// The versions as rows, newest first: until when each was in place, what it is of, what differs from now.
// What differs is found out when a row comes into view.
class VersionsModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Column { Until, File, Differs, columns };

    explicit VersionsModel(const Versions &versions, QObject *parent);

    // Reads the folder again.
    void refresh();
    // Whether the folder holds just these versions.
    bool isCurrent() const { return versions_.all() == rows_; }
    // The row of the version of that name; -1 if there is none.
    int rowOf(const QString &name) const;
    const Version &at(int row) const { return rows_[row]; }
    QString pathOf(int row) const { return versions_.pathOf(rows_[row]); }
    const Differences &comparison(int row) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    const Versions &versions_;
    QList<Version> rows_;
    mutable QHash<int, Differences> compared_; // by row
};

// What people call a file of the data folder: "Archive", "Left page of 12".
QString nameForPeople(const QString &file);

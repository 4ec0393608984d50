#pragma once

#include "stand/stand_look.h"

#include <QAbstractTableModel>

// What a copy to a stand comes to, as rows: a file each.
class StandModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Column { What, File, Song, Size, columns };

    using QAbstractTableModel::QAbstractTableModel;

    void show(StandLook look);
    const StandLook &look() const { return look_; }

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    QString text(const PlannedFile &planned, int column) const;

    StandLook look_;
};

// A number of bytes for people: "24.1 MB".
QString sizeText(qint64 bytes);

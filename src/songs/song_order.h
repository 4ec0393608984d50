#pragma once

#include "songs/song_columns.h"

#include <QCollator>

#include <vector>

// All songs of the archive in the order of one column: numbers as numbers, texts as in a dictionary. Songs
// that are equal there stand by their numbers.
class SongOrder
{
public:
    explicit SongOrder(const SongsOnDisk &disk)
        : disk_(disk)
    {
    }

    void sortBy(SongColumn column, Qt::SortOrder order);
    // Sorts again where these songs have changed, or were added; for the other songs it takes what it knows.
    void update(const QList<int> &records);
    // Sorts again after the disk was read anew.
    void updateFromDisk();
    // Sorts again where all may have changed.
    void updateAll();

    const QList<int> &records() const { return records_; }

private:
    void sort();

    const SongsOnDisk &disk_;
    SongColumn column_ = SongColumn::Number;
    Qt::SortOrder order_ = Qt::AscendingOrder;
    std::vector<QCollatorSortKey> keys_; // of record n in place n - 1, where the column is one of texts
    QList<int> records_;
};

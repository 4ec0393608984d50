#include "songs/song_order.h"

#include "songs/songs_on_disk.h"
#include "text/alphabetical.h"

#include <algorithm>
#include <numeric>

void SongOrder::sortBy(SongColumn column, Qt::SortOrder order)
{
    const bool isOther = column != column_;
    column_ = column;
    order_ = order;
    if (isOther)
        updateAll();
    else
        sort();
}

void SongOrder::updateAll()
{
    keys_.clear();
    update({});
}

void SongOrder::updateFromDisk()
{
    if (fieldOf(column_))
        update({});
    else
        updateAll();
}

void SongOrder::update(const QList<int> &records)
{
    const QCollator collator = dictionaryOrder();
    const auto keyOf = [&](int n) { return collator.sortKey(textOf(column_, n, disk_)); };
    if (isText(column_)) {
        for (const int n : records) {
            if (static_cast<size_t>(n) <= keys_.size())
                keys_[static_cast<size_t>(n) - 1] = keyOf(n);
        }
        while (keys_.size() < static_cast<size_t>(Module1.recCount))
            keys_.push_back(keyOf(static_cast<int>(keys_.size()) + 1));
    }
    sort();
}

void SongOrder::sort()
{
    records_.resize(Module1.recCount);
    std::iota(records_.begin(), records_.end(), 1);
    const auto difference = [this](int one, int other) {
        if (!isText(column_))
            return rankOf(column_, one, disk_) - rankOf(column_, other, disk_);
        return keys_[static_cast<size_t>(one) - 1].compare(keys_[static_cast<size_t>(other) - 1]);
    };
    const auto isBefore = [&](int one, int other) {
        const int sign = difference(one, other);
        if (sign != 0)
            return (sign < 0) == (order_ == Qt::AscendingOrder);
        return one < other;
    };
    std::sort(records_.begin(), records_.end(), isBefore);
}

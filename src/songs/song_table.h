#pragma once

#include "songs/song_choice.h"
#include "songs/song_order.h"
#include "songs/song_search.h"

#include <QAbstractTableModel>

// The list of songs as a table: those of the archive that are chosen and found, in an order. It reads the
// arrays of Module1 themselves, keeps the numbers of its rows, and is reset where these change; whoever
// shows it puts back by number what was selected. An edit in a cell goes to Edits.
class SongTable : public QAbstractTableModel
{
    Q_OBJECT
public:
    explicit SongTable(Edits &edits);

    // Reads the disk. A playlist that is shown is looked for by its name; where it has gone, all are shown.
    void readDisk();
    void choose(const SongChoice &choice);
    void find(const QString &typed);
    // No column: by number, or in the order of the playlist that is shown.
    void sort(int column, Qt::SortOrder order) override;

    // From row to number and back; -1 for a song that is not shown.
    int songAt(int row) const { return rows_[row]; }
    int rowOf(int n) const { return static_cast<int>(rows_.indexOf(n)); }

    const SongsOnDisk &disk() const { return disk_; }
    const SongChoice &choice() const { return choice_; }
    const Query &query() const { return search_.query(); }

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;

private:
    void takeChanges(const QList<int> &records);
    void takeReplaced();
    void chooseAnew();
    void showFound();

    Edits &edits_;
    SongsOnDisk disk_;
    SongOrder order_{disk_};
    bool isSorted_ = false; // by a column
    SongChoice choice_;
    QList<int> chosen_; // before the search
    SongSearch search_;
    QList<int> rows_; // what is shown
};

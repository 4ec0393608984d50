#pragma once

#include "intake/found_files.h"

#include <QAbstractTableModel>
#include <QUndoStack>

#include <array>

enum class ComingColumn { Tick, Left, Right, Recording, Title, Author, Tags, Category, Note };
inline constexpr int comingColumns = 9;

// The songs that may be brought in, a row each, to be looked through and put right. Every change of a person
// is a step that can be undone. Rows count from 0.
class ComingTable : public QAbstractTableModel
{
    Q_OBJECT
public:
    ComingTable();

    const QList<ComingSong> &songs() const { return songs_; }
    int tickedCount() const;
    // The page in a cell; one that does not exist where the cell is of another column, or empty.
    ComingPage pageAt(const QModelIndex &cell) const;

    // Puts other songs in the place of all, or of some; with what is undone.
    void replaceSongs(const QList<ComingSong> &songs, const QString &step);
    void replaceRows(const QList<int> &rows, const QList<ComingSong> &songs, const QString &step);
    // Titles and authors that were not typed are taken from the names anew.
    void readNames(const Reading &reading);
    // Notes what was found out about a row, beside the steps; with `untick` also that it cannot come.
    void addNote(int row, const QString &words, bool untick);
    // Takes away what has been brought in; the steps before are forgotten.
    void keepOnly(const QList<ComingSong> &songs);

    void setTicked(const QList<int> &rows, bool ticked);
    // Title, author, tags, as the files can carry them, or the number of the category.
    void setText(const QList<int> &rows, ComingColumn column, const QString &text);
    void setCategory(const QList<int> &rows, int category);
    void exchangePages(const QList<int> &rows);
    void turn(const QModelIndexList &pages);
    // The page in the cell, and what follows it in its row, become a row below.
    bool canBeginSongAt(const QModelIndex &page) const;
    void beginSongAt(const QModelIndex &page);
    // One row to the one above it; of several, every second to the one before.
    bool canJoin(const QList<int> &rows) const;
    void join(const QList<int> &rows);
    // The pages of these rows, each the scan of two.
    bool canHalve(const QList<int> &rows) const;
    void halve(const QList<int> &rows);

    QUndoStack *undoStack() { return &stack_; }

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;

private:
    friend class ComingStep;
    using Pairs = QList<std::pair<int, int>>;

    void store(const QList<ComingSong> &songs);
    void change(const QList<int> &rows, const QString &step, const std::function<void(ComingSong &)> &edit);
    Pairs pairsOf(const QList<int> &rows) const;

    QList<ComingSong> songs_;
    QUndoStack stack_;
};

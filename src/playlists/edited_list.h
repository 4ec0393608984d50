#pragma once

#include <QList>
#include <QString>
#include <QUndoStack>

#include <functional>
#include <optional>

// One song of the list being edited.
struct ListedSong {
    int record = 0; // 0 for none; its number is looked up when the list is saved
    QString row; // what its row shows
    bool isLeftOut = false; // it had no number when the list was last saved, and the person knows
};

// A song as a stored playlist shows it, by its title; any number from 0 to 9,999.
ListedSong storedSong(int record);
// A song as it is shown where it was added here: "title _12".
ListedSong addedSong(int record);
// The record of that title, of several the last; 0 if there is none.
int recordOfTitle(const QString &title);

// A change of the rows: from `first` on, `removed` rows gave way to `inserted` ones. Then the rows `selected`
// are to be selected; without a value those that are stay so.
struct RowChange {
    int first = 0;
    int removed = 0;
    int inserted = 0;
    std::optional<QList<int>> selected;
};

// The list being edited: row r, from 0, shows the song of slot r + 1. Each change of it is one step that
// can be undone and done again. Rows are given in ascending order.
class EditedList
{
public:
    static constexpr int most = 1000; // songs

    // `shown` is told of each change, also by undo() and redo(), when songs() is the new list already.
    explicit EditedList(std::function<void(const RowChange &)> shown)
        : shown_(std::move(shown))
    {
    }

    const QList<ListedSong> &songs() const { return songs_; }
    qsizetype room() const { return most - songs_.size(); }

    // There must be room for them. With `place`, which counts from 0 and may lie behind the last row, they
    // come before the row there and are selected; without it they come last, and what is selected stays so.
    void add(const QList<ListedSong> &songs, std::optional<int> place = {});
    void remove(const QList<int> &rows);
    // Brings the rows together before the row `place`, which may lie behind the last one.
    void move(const QList<int> &rows, int place);
    // Exchanges each of the rows with the one before it. At the top nothing happens.
    void moveUp(const QList<int> &rows);
    // The same with the one behind it, and at the bottom.
    void moveDown(const QList<int> &rows);
    // Begins another list. `exchange` is run now and at each undoing and redoing of this step: it puts in
    // place what belongs to the list and keeps what it replaces.
    void replaceAll(const QList<ListedSong> &songs, const std::function<void()> &exchange);

    void undo() { steps_.undo(); }
    void redo() { steps_.redo(); }
    // An empty list, and nothing to undo; tells nobody.
    void forget();

    // How many songs a Save would leave out without anybody knowing, since their records have no number.
    struct Losses {
        int notInArchive = 0;
        int notYetSaved = 0; // records added since the archive was last saved
    };
    Losses losses() const;
    // The list as the playlist file has it, "12,3,47,#", with the numbers that the records have now; a song
    // without one is an empty piece.
    QString text() const;
    // To be called when the list was saved: what was left out is known.
    void acceptLosses();

private:
    using Selection = std::optional<QList<int>>;
    // From `first` on, some songs give way to others.
    struct Step {
        int first = 0;
        QList<ListedSong> removed;
        QList<ListedSong> inserted;
        Selection before; // what is selected where the step is undone, and where it is done
        Selection after;
        std::function<void()> exchange = {};
    };
    class Command;

    void take(const Step &step);
    void put(int first, qsizetype removed, const QList<ListedSong> &inserted, const Selection &selected);

    QList<ListedSong> songs_;
    QUndoStack steps_;
    const std::function<void(const RowChange &)> shown_;
};

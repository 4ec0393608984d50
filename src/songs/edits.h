#pragma once

#include "archive/Module1.h"

#include <QHash>
#include <QList>
#include <QObject>
#include <QUndoStack>

#include <array>
#include <optional>

// What of a song can be edited, and taken back.
enum class Field { Title, Author, Tags, Category };

// The column of Module1 that holds it.
Module1State::Column &columnOf(Field field);

// Every change of the records in memory goes through here, so that it can be undone, and so that whoever
// shows records hears of it. Only loading and appending go past it, and are told to it. The record's number
// counts from 1 to 9,999; behind recCount lies what was typed and not yet added.
class Edits : public QObject
{
    Q_OBJECT
public:
    // Puts one text into each of the records as one step. Texts that are there already are no change, and
    // where nothing changes there is no step.
    void set(Field field, const QList<int> &records, const QStringList &texts);
    // Puts what was typed into a box of the main window into the record. All that is typed into one box
    // is one step, until rest().
    void type(Field field, int record, const QString &text);
    // What is typed from now on is a step of its own: another song is shown, or the archive was saved.
    void rest() { run_ += 1; }

    // recCount was raised by one, which cannot be undone.
    void added();
    // The records in memory are now those on the disk.
    void saved();
    // The archive was read anew, so that the steps are about songs that are no more.
    void loaded();

    // The records whose fields differ from those on the disk, and those added since, in order.
    QList<int> unsavedRecords() const;

    // What a record's title, author, tags and category are on the disk, where they differ or once did since
    // it was read or saved; nothing for one that was added since.
    std::optional<std::array<QString, 4>> asOnDisk(int record) const;

    // With texts as in "Undo title of 12". Nothing else pushes on it.
    QUndoStack &stack() { return stack_; }

signals:
    // These records have other texts, or are new, or were saved.
    void changed(const QList<int> &records);
    // These records were brought back to what they were, or changed again, by undo or redo.
    void steppedTo(const QList<int> &records);
    // All records may be others. What was kept of them is to be thrown away.
    void replaced();

private:
    friend class EditStep;
    using Fields = std::array<QString, 4>;

    void store(Field field, const QList<int> &records, const QStringList &texts);
    void beginAnew();

    QUndoStack stack_;
    int run_ = 0; // steps of typing are joined while this is the same
    QHash<int, Fields> onDisk_; // of each record edited since it was read or saved, what it was then
    int countOnDisk_ = 0;
};

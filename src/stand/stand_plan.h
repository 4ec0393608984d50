#pragma once

#include "stand/stand_files.h"

// What a copy of one data folder to another comes to.

struct PlannedFile {
    enum class Task {
        New,
        Changed,
        NotToBeCopied, // it would take the place of another one of its name, or is no ordinary file
        OnlyThere, // stays as it is
        Same // in size, and in time within two seconds
    };

    Task task = Task::Same;
    ListedFile file; // the one here; of OnlyThere the one there
    qint64 sizeThere = 0;
    bool isNewerThere = false; // the one there was changed later than the one here; of Changed
    QString reason = {}; // for people, of NotToBeCopied: a clause

    bool isToBeCopied() const { return task == Task::New || task == Task::Changed; }
};

// In the order of the tasks, and within each of the songs' numbers; data files last. Where `foldsCase`, names
// there that differ in letters' case alone are one. What a broken write has left here, or is on its way
// to its place, is no part of it.
QList<PlannedFile> planOf(const QList<ListedFile> &here, const QList<ListedFile> &there, bool foldsCase);

// So many bytes are copied at a time before they take their places, and one file more at most.
inline constexpr qint64 bytesAtATime = 32 << 20;

// How many bytes must be free there, where each file takes up whole blocks: all that is added, and those that
// lie there twice for a moment.
qint64 roomNeeded(const QList<PlannedFile> &plan, qint64 blockSize);

// "archivio.js"
QString archiveName();
// True for the data files, which tell of all others: archivio.js, generi.js, playlist.js, midi.js.
bool isDataFile(const QString &name);

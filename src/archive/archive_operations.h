#pragma once

#include "archive/archive_file.h"

#include <QHash>

// What is done with the archive of Module1 as a whole. Nothing here asks or tells a person.

// Whether a record was changed or added since the archive was last read or saved. Text typed behind the
// last record is no record yet, but it is somebody's work, and counts.
bool hasUnsavedChanges();

// Whether something was typed behind the last record, where the next new song comes.
bool hasTextBehindLast();

// The first song of each title, under what foldedTitle() makes of it; those without one are left out.
QHash<QString, int> songsByTitle();

// Whether the file holds something else than `known`, which then becomes what it holds. False where it
// cannot be read.
bool isArchiveOtherThan(QByteArray &known);

// Drops all records, what was typed behind them, and a refusal, as before the first reading.
void forgetArchive();

// Where no archive was read, or one of no titles: whether another one lies on the disk by now.
bool hasArchiveArrived();

// What became of beginning an archive.
struct [[nodiscard]] ArchiveBeginning {
    Result written; // not fine: none was begun or read, and what was typed stands where it stood
    bool hasArrived = false; // nothing was written, since another archive has come; it was read
    ArchiveReading reading; // where `written` is fine, of what lies on the disk now
};

// Where no archive was read, or one of no records: writes one whose songs are what was typed, in its order,
// or of one empty record, and reads it. If the disk holds another archive by now, that one is read, and
// what was typed becomes added songs behind its last.
ArchiveBeginning beginArchive();

// What became of saving the archive.
struct [[nodiscard]] ArchiveSaving {
    Result written; // not fine: the file is as it was before, and so is the memory
    Result readBack; // not fine: the file was written all the same
};

// Writes the archive and reads it back. What was typed behind the last record stays in memory.
ArchiveSaving saveArchive();

enum class Adding {
    Added,
    LastIsEmpty, // the last record has no title yet
    Full
};

// Counts in one more record, which holds what was typed behind the last one.
Adding addSong();

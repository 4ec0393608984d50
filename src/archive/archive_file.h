#pragma once

#include "archive/Module1.h"
#include "files/result.h"
#include "format/token.h"

// Reading and writing spartiti/archivio.js; docs/file-formats.md tells its format.

// The five fields of one record, as views into the file's bytes.
struct ArchiveRecord {
    QByteArrayView number;
    QByteArrayView title;
    QByteArrayView author;
    QByteArrayView tags;
    QByteArrayView category;
    bool regular = true; // each field stands on a line of its own, with nothing else on it
};

inline constexpr qsizetype tokensPerRecord = 10;

// Takes the tokens of the record at the file's position.
ArchiveRecord readRecord(TokenFile &file);

// Whether nothing but the closing line and perhaps blank lines follow at the file's position.
bool endsAsWritten(TokenFile &file);

// What loadArchive() found. Where the result is not fine, no record has changed.
struct [[nodiscard]] ArchiveReading {
    Result result;
    int irregularRecord = 0; // the first record that is not regular, from 1; 0 if all are
    bool endMissing = false; // behind the last record comes something else than the closing line
};

// Fills recCount and entries 1 to recCount of the five arrays of Module1 from the file, and touches no
// others. A file that is there and cannot be read, is damaged or holds more than 9,999 records sets
// archiveRefusal, since a Save would destroy what it holds.
ArchiveReading loadArchive();

// Replaces the file with entries 1 to `count` of the arrays, which stay as they are. Refused with
// archiveRefusal as the reason where that is set; Unwritable leaves the old file in place.
Result writeArchive(int count = Module1.recCount);

// True if the file holds something else than was last read or written here: another program, or this one
// started twice, has replaced it, and a write would undo what that did. The question is for people.
bool wasArchiveReplaced();
inline constexpr char archiveReplacedQuestion[] =
    "Another program has changed spartiti/archivio.js since it was read here. Do you want to replace it by "
    "what this window holds? What the other program did to it would be lost.";

// Replaces spartiti/ARCHIVIO.CSV with entries 1 to recCount, as they stand in memory. Refused while the
// archive is, since nothing of it is in memory then.
Result writeCsv();

#pragma once

#include "archive/Module1.h"
#include "files/result.h"

#include <QList>

// Reading and writing spartiti/archivio.js; docs/file-formats.md tells its format.

// What loadArchive() found. Where the result is not fine, no record has changed.
struct [[nodiscard]] ArchiveReading {
    Result result;
    int irregularRecord = 0; // the first record with something beside its five lines, from 1; 0 if none
    bool endMissing = false; // behind the last record comes something else than the closing line
    QList<int> unviewable = {}; // the records at which the viewer stops, see unviewableRecords()
};

// Fills recCount and entries 1 to recCount of the five arrays of Module1 from the file, and touches no
// others. A file that is there and cannot be read, is damaged or holds more than 9,999 records sets
// archiveRefusal, since a Save would destroy what it holds.
ArchiveReading loadArchive();

// Refused, with the reason, while the archive that lies on the disk could not be read: nobody knows then
// which songs there are, so nothing that belongs to one may be written.
Result checkArchive();

// The file as it is with entries 1 to `count` of the arrays.
QByteArray archiveBytes(int count);

// Replaces the file with entries 1 to `count` of the arrays, which stay as they are. Refused with
// archiveRefusal as the reason where that is set; Unwritable leaves the old file in place.
Result writeArchive(int count = Module1.recCount);

// True if the file holds something else than was last read or written here: another program, or this one
// started twice, has replaced it, and a write would undo what that did. False while archiveRefusal is set.
bool wasArchiveReplaced();

// Replaces spartiti/ARCHIVIO.CSV with entries 1 to recCount, as they stand in memory. Refused while the
// archive is, since nothing of it is in memory then.
Result writeCsv();

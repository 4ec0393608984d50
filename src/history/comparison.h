#pragma once

#include "files/result.h"
#include "history/thinning.h"

// What an earlier version of a data file holds otherwise than the present one.

// One field of one song, playlist, block of MIDI settings or category.
struct Difference {
    int record = 0; // the song's number; 0 where it is no song
    QString what; // "12 Amazing Grace", "Sunday set"
    QString field; // "Title", "Songs"; empty where the whole is new or gone
    QString then; // empty where it is new since
    QString now; // empty where it is gone since

    bool operator==(const Difference &) const = default;
};

struct Differences {
    Result result; // anything but fine: the version could not be read
    QString summary; // "3 titles changed, 1 new"; of what has happened since
    QList<Difference> differences; // none of a page or a recording
};

// Compares the version of a file that lies in `path` with the present one: of the archive that is what
// is in memory, saved or not, else what lies on the disk.
Differences compareWithNow(const Version &version, const QString &path);

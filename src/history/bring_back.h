#pragma once

#include "archive/archive_table.h"
#include "history/thinning.h"

class Edits;
class Versions;

// Putting earlier versions back in place.

// A version of the archive, read; its result tells if it is damaged.
ArchiveTable archiveOfVersion(const QString &path);

// The songs of the archive on the disk that one of `count` songs lacks: "12 Amazing Grace".
QStringList songsBehind(int count);

// Puts a version of a file in place of the present one, which becomes a version itself; where it cannot be
// kept, and where anything else fails, it stays. Nothing in memory has changed.
Result bringBack(Versions &versions, const Version &version);

// Takes these songs, numbers from 1, out of a version of the archive or of what was typed and not saved,
// which lies in `path`, as changes that are not saved and that undo takes back as one step. Returns those
// that it could not: the archive in memory or the version has no such song.
QList<int> bringBackSongs(Edits &edits, const Version &version, const QString &path,
                          const QList<int> &records);

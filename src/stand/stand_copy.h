#pragma once

#include "stand/stand_look.h"

// Copying the archive to a stand: pages, recordings and all other files first, then the data files, the
// archive last; each is written beside its place, forced onto the disk, read back and compared before it
// takes the place of what lies there. So whenever it ends, every file there is the old one or the new one,
// whole, and no data file tells of a page that has not come. Nothing is deleted there.

// What became of it. Anything but a fine result: the next copying goes on from there.
struct [[nodiscard]] StandCopy {
    // Fine: all is there but for what notCopied names. Cancelled; Unwritable where the stand is full,
    // protected or gone; else what kept it from being begun or finished.
    Result result;
    int copied = 0; // files that have taken their places
    int all = 0; // that were to be copied
    bool hasNewArchive = false; // archivio.js was among them
    QStringList notCopied; // for people: files that are none of the archive's own, and why they are not there
    int songs = 0;
    int playlists = 0;
};

// What changes here meanwhile is copied too. `progress` counts files.
StandCopy copyToStand(const QString &root, const Progress &progress = {});

// For people: what became of it, in a sentence or two, without notCopied.
QString textOf(const StandCopy &copy);

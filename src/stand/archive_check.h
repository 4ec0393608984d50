#pragma once

#include "files/progress.h"
#include "stand/finding.h"

#include <QList>
#include <QStringList>

// Looking through the archive of the working directory, as it lies on the disk, for all at which the stand
// will stumble. Nothing is changed.

struct [[nodiscard]] ArchiveCheck {
    QList<Finding> findings; // of the data files, of songs and their pages, of other files
    QStringList titles; // of each song on the disk; entry 0 is never used
    int pages = 0; // how many page files were looked at
    bool wasCancelled = false; // then not all of them were, and what is wrong with the others is not known
};

// Of each page only the beginning is read. `progress` counts pages.
ArchiveCheck checkWholeArchive(const Progress &progress = {});

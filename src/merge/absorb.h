#pragma once

#include "files/data_folder.h"
#include "merge/merge_source.h"

#include <QList>

// Taking songs of another installation into the archive of Module1.

// A page that something went wrong with, and why.
struct PageTrouble {
    int record = 0; // the new song's number
    Page page = Page::Left;
    QString reason;
};

// A page that lay under a new song's number from before, and now has another name.
struct OldPage {
    QString path;
    QString newPath;
};

// What absorb() did and what it could not do.
struct [[nodiscard]] AbsorbReport {
    Result archive; // anything but fine: nothing has changed, neither on the disk nor in memory
    QList<PageTrouble> notCopied; // the source has the page, or had it, and the new song has it not
    QList<OldPage> setAside;
    QList<PageTrouble> notSetAside; // from before, and still under the new song's number
    QList<int> withoutNumber; // new songs whose number in the source names no page files
};

// Refused, with the reason, where so many songs cannot be absorbed: the archive must not be written, has
// no room for them, or the source is no longer there.
Result checkAbsorb(const MergeSource &source, qsizetype chosenCount);

// Appends the records in these slots of the source, in this order, to the arrays behind recCount, rewrites
// the archive with them, and copies their pages. recCount itself stays as it is until the archive is
// loaded again. A page that the source lacks is no trouble. No file is deleted.
AbsorbReport absorb(const MergeSource &source, const QList<int> &chosen);

// For people: what a report tells beside what went as it should; empty where nothing does.
QString troubleText(const AbsorbReport &report);

#pragma once

#include "archive/append_songs.h"
#include "merge/category_translation.h"
#include "merge/merge_source.h"

#include <QList>

// Taking songs of another installation into the archive of Module1.

// What became of them. A page that the source lacks is no trouble.
struct [[nodiscard]] AbsorbReport : AppendReport {
    QList<int> withoutNumber; // new songs whose number in the source names no page files
    QList<std::pair<int, QString>> withoutCategory; // those that lost it, with its name in the source
};

// Refused, with the reason, where so many songs cannot be absorbed: the archive must not be written, has
// no room for them, or the source is no longer there or no longer what was read.
Result checkAbsorb(const MergeSource &source, qsizetype chosenCount);

// Appends the records in these slots of the source with their pages, in this order, as appendSongs(). No
// file is deleted. The categories keep their numbers, or where there is a translation their names.
AbsorbReport absorb(const MergeSource &source, const QList<int> &chosen, const Progress &progress = {},
                    const std::optional<CategoryTranslation> &categories = {});

// For people: what a report tells beside what went as it should; empty where nothing does.
QString troubleText(const AbsorbReport &report);

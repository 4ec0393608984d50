#pragma once

#include "files/data_folder.h"
#include "files/result.h"

#include <QStringList>

#include <optional>

// What files that are dropped on the main window are for.
enum class Dropped {
    Page, // one JPEG, on a page
    Recording, // one MP3, anywhere
    Songs // anything else: songs to be brought in
};

// `page` is the one on which they were dropped. There must be a song of number `record` that they could be
// for.
Dropped meaningOf(const QStringList &paths, std::optional<Page> page, int record);

// Puts a copy of the JPEG in place as this page alone; the other page stays. Refused while the archive must
// not be written; after anything but fine nothing has changed.
Result storeDroppedPage(int record, Page page, const QString &source);

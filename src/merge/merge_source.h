#pragma once

#include "archive/archive_table.h"

#include <QString>

// The archive of another installation, read only.
struct MergeSource {
    QString folder; // the installation's top folder
    ArchiveTable archive; // slot p is record p, counted from 1
};

// Reads spartiti/archivio.js in `folder`; a remainder of less than a record at its end is ignored. Where it
// cannot be read the archive's result is Missing or Unreadable.
[[nodiscard]] MergeSource readMergeSource(const QString &folder);

// Whether its archive is there and holds something else than was read.
bool wasChanged(const MergeSource &source);

#pragma once

#include "files/result.h"

#include <QString>
#include <QStringList>

// The archive of another installation, read only. Slot p of the five lists holds the p-th record of its
// file, counted from 1, as it stands there; slot 0 is never used.
struct MergeSource {
    static constexpr int lastSlot = 10000;

    QString folder; // the installation's top folder
    int sourceCount = 0;
    QStringList sourceNumber;
    QStringList sourceTitle;
    QStringList sourceAuthor;
    QStringList sourceTags;
    QStringList sourceCategory;
};

// What readMergeSource() found. Where the result is not fine, the source holds no records.
struct [[nodiscard]] SourceReading {
    MergeSource source;
    Result result;
    int irregularRecord = 0; // the first record with something beside its five lines, from 1; 0 if none
    bool endMissing = false; // behind the last record comes something else than the closing line
};

// Reads spartiti/archivio.js in `folder`; a remainder of less than a record at its end is ignored.
// Missing, Unreadable, Damaged (the file is empty) or TooLarge (more than 10,000 records) otherwise.
SourceReading readMergeSource(const QString &folder);

#pragma once

#include "files/data_folder.h"
#include "files/result.h"
#include "format/code_page.h"

#include <QList>

#include <vector>

// Reading an archive, whoever's it is: bytes in, a table out. docs/file-formats.md tells the format.

// The five fields of a record as they stand in the file, as views into its bytes.
struct ArchiveRecord {
    QByteArrayView number;
    QByteArrayView title;
    QByteArrayView author;
    QByteArrayView tags;
    QByteArrayView category;
    qsizetype place = 0; // where the record begins in the bytes
};

// How many records so many tokens make, and how many there may be.
struct CountRule {
    enum class Rounding {
        Nearest, // an exact half to the even neighbour; no records without a closing line are damage
        Down // what is left of a record at the end does not count
    };
    Rounding rounding;
    int most;
};

inline constexpr CountRule ownArchive = {CountRule::Rounding::Nearest, 9'999};
inline constexpr CountRule otherArchive = {CountRule::Rounding::Down, 10'000};

// What was read. It can be copied at little cost. Where the result is not fine there are no records.
struct [[nodiscard]] ArchiveTable {
    QByteArray bytes; // all of the file; not to be changed, the records are views into it
    std::vector<ArchiveRecord> records; // record n is records[n]; entry 0 is never used
    CodePageReader text = fromCodePage; // makes text of a field

    Result result; // Fine, Damaged or TooLarge
    int irregularRecord = 0; // the first record with something beside its five lines, from 1; 0 if none
    bool endMissing = false; // behind the last record comes something else than the closing line

    int count() const { return records.empty() ? 0 : static_cast<int>(records.size()) - 1; }
};

// `path` stands in the result alone.
ArchiveTable readArchive(const QByteArray &bytes, CountRule rule, const QString &path = archivePath());

// The records with a backslash or a line end in their title, author or tags, at which the viewer's script
// stops.
QList<int> unviewableRecords(const ArchiveTable &table);

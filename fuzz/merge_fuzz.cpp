// The archive of another installation: what is read of it and written into an archive reads the same.

#include "archive/archive_file.h"
#include "memory_files.h"
#include "merge/merge_source.h"

#include <QStringList>

static QStringList takeOver(const ArchiveTable &archive)
{
    QStringList titles;
    for (size_t p = 1; p < archive.records.size(); p += 1) {
        const ArchiveRecord &record = archive.records[p];
        titles += Module1.recTitle[p] = archive.text(record.title);
        Module1.recAuthor[p] = archive.text(record.author);
        Module1.recTags[p] = archive.text(record.tags);
        Module1.recCategory[p] = archive.text(record.category);
    }
    return titles;
}

extern "C" int LLVMFuzzerTestOneInput(const char *data, size_t size)
{
    memoryFile = QByteArray(data, static_cast<qsizetype>(size));
    const ArchiveTable archive = readMergeSource("other").archive;
    require(archive.result.ok() || archive.count() == 0);
    if (!archive.result.ok() || archive.count() > Module1State::lastRecord)
        return 0;
    QStringList titles = takeOver(archive);
    require(writeArchive(archive.count()).ok());
    const ArchiveTable again = readMergeSource("other").archive;
    require(again.result.ok() && again.irregularRecord == 0 && !again.endMissing);
    require(takeOver(again) == titles.replaceInStrings("\"", "'"));
    const QByteArray written = memoryFile;
    require(writeArchive(again.count()).ok() && memoryFile == written);
    return 0;
}

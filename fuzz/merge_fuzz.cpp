// The archive of another installation: what is read of it and written into an archive reads the same.

#include "archive/archive_file.h"
#include "memory_files.h"
#include "merge/merge_source.h"

static void takeOver(const MergeSource &source)
{
    for (int p = 1; p <= source.sourceCount; p += 1) {
        const auto entry = static_cast<size_t>(p);
        Module1.recTitle[entry] = source.sourceTitle[p];
        Module1.recAuthor[entry] = source.sourceAuthor[p];
        Module1.recTags[entry] = source.sourceTags[p];
        Module1.recCategory[entry] = source.sourceCategory[p];
    }
}

extern "C" int LLVMFuzzerTestOneInput(const char *data, size_t size)
{
    memoryFile = QByteArray(data, static_cast<qsizetype>(size));
    const SourceReading reading = readMergeSource("other");
    const MergeSource &source = reading.source;
    if (!reading.result.ok() || source.sourceCount > Module1State::lastRecord) {
        require(reading.result.ok() || source.sourceCount == 0);
        return 0;
    }
    takeOver(source);
    require(writeArchive(source.sourceCount).ok());
    const SourceReading again = readMergeSource("other");
    require(again.result.ok() && again.irregularRecord == 0 && !again.endMissing);
    require(again.source.sourceCount == source.sourceCount);
    QStringList titles = source.sourceTitle;
    require(again.source.sourceTitle == titles.replaceInStrings("\"", "'"));
    takeOver(again.source);
    const QByteArray written = memoryFile;
    require(writeArchive(source.sourceCount).ok() && memoryFile == written);
    return 0;
}

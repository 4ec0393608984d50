// The archive: whatever is read and written again reads the same, and then nothing changes any more.

#include "archive/archive_file.h"
#include "memory_files.h"

#include <QStringList>

static QStringList fieldsInMemory()
{
    QStringList fields;
    for (size_t i = 1; i <= static_cast<size_t>(Module1.recCount); i += 1)
        fields += {Module1.recTitle[i], Module1.recAuthor[i], Module1.recTags[i], Module1.recCategory[i]};
    return fields;
}

// As the writer puts them: it has no quotes, and no category is 0.
static QStringList asWritten(QStringList fields)
{
    fields.replaceInStrings("\"", "'");
    for (qsizetype i = 3; i < fields.size(); i += 4) {
        if (fields[i].isEmpty())
            fields[i] = "0";
    }
    return fields;
}

extern "C" int LLVMFuzzerTestOneInput(const char *data, size_t size)
{
    Module1.archiveRefusal.clear();
    Module1.recCount = 0;
    const QByteArray given(data, static_cast<qsizetype>(size));
    memoryFile = given;
    if (!loadArchive().result.ok()) {
        require(writeArchive().kind == Result::Kind::Refused && memoryFile == given);
        return 0;
    }
    const QStringList fields = fieldsInMemory();
    require(writeArchive().ok());
    const QByteArray written = memoryFile;
    const ArchiveReading again = loadArchive();
    require(again.result.ok() && again.irregularRecord == 0 && !again.endMissing);
    require(fieldsInMemory() == asWritten(fields));
    require(writeArchive().ok() && memoryFile == written);
    return 0;
}

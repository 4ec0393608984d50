#include "audio/recording.h"

#include "archive/archive_operations.h"
#include "files/data_folder.h"
#include "files/safe_write.h"

Result storeRecording(int pageRecord, const QString &source, int audioRecord, int category)
{
    if (const Result archive = checkArchive(); !archive.ok())
        return archive;
    if (const Result copied = copyFile(source, recordingPath(pageRecord)); !copied.ok())
        return copied;
    Module1.recCategory[static_cast<size_t>(audioRecord)] = QString::number(category);
    Module1.archiveChanged = true;
    return {};
}

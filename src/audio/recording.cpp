#include "audio/recording.h"

#include "archive/archive_operations.h"
#include "files/data_folder.h"
#include "files/safe_write.h"

Result storeRecording(int record, const QString &source)
{
    const Result archive = checkArchive();
    return archive.ok() ? copyFile(source, recordingPath(record)) : archive;
}

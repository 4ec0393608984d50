#include "audio/recording.h"

#include "archive/Module1.h"
#include "files/data_folder.h"
#include "files/safe_write.h"

Result storeRecording(int pageRecord, const QString &source, int audioRecord, int category)
{
    const QString target = recordingPath(pageRecord);
    if (!Module1.archiveRefusal.isEmpty())
        return Result::failed(Result::Kind::Refused, target, Module1.archiveRefusal);
    if (const Result copied = copyFile(source, target); !copied.ok())
        return copied;
    Module1.recCategory[static_cast<size_t>(audioRecord)] = QString::number(category);
    Module1.archiveChanged = true;
    return {};
}

#include "merge/merge_source.h"

#include "files/platform.h"
#include "files/safe_write.h"

MergeSource readMergeSource(const QString &folder)
{
    const QString path = archivePath(folder);
    QByteArray bytes;
    MergeSource source{.folder = folder, .archive = {}};
    if (const Result read = readWhole(path, bytes); !read.ok())
        source.archive.result = read;
    else
        source.archive = readArchive(bytes, otherArchive, path);
    return source;
}

bool wasChanged(const MergeSource &source)
{
    const QString path = archivePath(source.folder);
    return !isMissing(path) && !holdsJust(path, source.archive.bytes);
}

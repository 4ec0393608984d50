#include "memory_files.h"

#include "files/safe_write.h"

Result readWhole(const QString &, QByteArray &bytes)
{
    bytes = memoryFile;
    return {};
}

bool holdsJust(const QString &, QByteArrayView bytes)
{
    return memoryFile == bytes;
}

Result replaceFile(const QString &path, QByteArrayView bytes)
{
    return replaceFile(path, QList<QByteArrayView>{bytes});
}

Result replaceFile(const QString &, const QList<QByteArrayView> &pieces)
{
    QByteArray bytes;
    for (const QByteArrayView piece : pieces)
        bytes += piece;
    memoryFile = bytes;
    return {};
}

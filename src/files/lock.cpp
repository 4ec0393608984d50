#include "files/lock.h"

#include <QFile>
#include <QFileInfo>
#include <QLockFile>

bool takeLock(QLockFile &lock)
{
    // Killed before it could write its name there, nobody holds it, and Qt would wait for ever.
    if (const QFileInfo file(lock.fileName()); file.exists() && file.size() == 0)
        QFile::remove(file.filePath());
    lock.setStaleLockTime(0);
    return lock.tryLock(0);
}

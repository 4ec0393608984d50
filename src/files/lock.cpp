#include "files/lock.h"

#include <QFile>
#include <QFileInfo>
#include <QLockFile>

bool takeLock(QLockFile &lock)
{
    // Killed before it could write its name there, nobody holds it, and Qt would wait for ever.
    if (QFileInfo(lock.fileName()).size() == 0)
        QFile::remove(lock.fileName());
    lock.setStaleLockTime(0);
    return lock.tryLock(0);
}

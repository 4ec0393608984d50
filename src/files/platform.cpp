#include "files/platform.h"

#include <QFile>

#include <cerrno>
#include <system_error>

#ifdef _WIN32
#include <io.h>

bool syncFile(int handle)
{
    return _commit(handle) == 0;
}

void beginSync(int) { }

bool syncFileSystem(int)
{
    return false;
}

void syncFolder(const QString &) { }

bool isMissing(const QString &path)
{
    return _waccess(path.toStdWString().c_str(), 0) != 0 && errno == ENOENT;
}
#else
#include <fcntl.h>
#include <unistd.h>

bool syncFile(int handle)
{
    int done = 0;
    do
        done = fsync(handle);
    while (done != 0 && errno == EINTR);
    return done == 0;
}

void beginSync([[maybe_unused]] int handle)
{
#ifdef __linux__
    sync_file_range(handle, 0, 0, SYNC_FILE_RANGE_WRITE);
#endif
}

bool syncFileSystem([[maybe_unused]] int handle)
{
#ifdef __linux__
    return syncfs(handle) == 0;
#else
    return false;
#endif
}

void syncFolder(const QString &folder)
{
    const int handle = open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle < 0)
        return;
    syncFile(handle);
    close(handle);
}

bool isMissing(const QString &path)
{
    return access(QFile::encodeName(path).constData(), F_OK) != 0 && (errno == ENOENT || errno == ENOTDIR);
}
#endif

QString systemReason()
{
    return QString::fromStdString(std::generic_category().message(errno));
}

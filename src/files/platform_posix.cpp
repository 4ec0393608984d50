#include "files/platform.h"

#include <QFile>
#include <QFileInfo>
#include <QProcess>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <system_error>
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

void forgetCached([[maybe_unused]] int handle)
{
#ifdef POSIX_FADV_DONTNEED
    posix_fadvise(handle, 0, 0, POSIX_FADV_DONTNEED);
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

bool renameOver(const QString &from, const QString &to)
{
    return rename(QFile::encodeName(from), QFile::encodeName(to)) == 0;
}

// Where the file system does not know the flag: between the look and the step something may still arrive.
static bool lookAndRename(const char *from, const char *to)
{
    struct stat found {
    };
    if (lstat(to, &found) == 0)
        errno = EEXIST;
    else if (errno == ENOENT)
        return rename(from, to) == 0;
    return false;
}

bool renameOverNothing(const QString &from, const QString &to)
{
    const QByteArray source = QFile::encodeName(from);
    const QByteArray target = QFile::encodeName(to);
#ifdef __linux__
    if (renameat2(AT_FDCWD, source, AT_FDCWD, target, RENAME_NOREPLACE) == 0)
        return true;
    if (errno != EINVAL && errno != ENOSYS)
        return false;
#endif
    return lookAndRename(source, target);
}

bool isMissing(const QString &path)
{
    return access(QFile::encodeName(path).constData(), F_OK) != 0 && (errno == ENOENT || errno == ENOTDIR);
}

bool isNothingThere(const QString &path)
{
    struct stat found {
    };
    return lstat(QFile::encodeName(path).constData(), &found) != 0 && (errno == ENOENT || errno == ENOTDIR);
}

void limitMemory(QProcess &process, qint64 bytes)
{
    process.setChildProcessModifier([bytes] {
        const rlimit limit{static_cast<rlim_t>(bytes), static_cast<rlim_t>(bytes)};
        setrlimit(RLIMIT_AS, &limit);
    });
}

FileState stateOfFile(const std::filesystem::path &path)
{
    struct stat found {
    };
    if (stat(path.c_str(), &found) != 0 || !S_ISREG(found.st_mode))
        return {};
    return {qint64{found.st_size}, qint64{found.st_mtim.tv_sec} * 1000 + found.st_mtim.tv_nsec / 1'000'000};
}

QString obstacleTo(const QString &folder)
{
    std::error_code error;
    const std::filesystem::directory_iterator attempt(QFileInfo(folder).filesystemFilePath(), error);
    if (!error && !QFileInfo(folder).isExecutable())
        error = std::make_error_code(std::errc::permission_denied);
    return error ? QString::fromStdString(error.message()) : QString();
}

bool isForbiddenName(const QString &)
{
    return false;
}

QString driveName(const QString &)
{
    return {};
}

QString betterWorkingFolder()
{
    return {};
}

QString systemReason()
{
    return QString::fromStdString(std::generic_category().message(errno));
}

#include "support/test_folder.h"

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <utility>

// Returns the limit that held before.
static qint64 setLargestFile(qint64 bytes)
{
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    const rlim_t before = std::exchange(limit.rlim_cur, static_cast<rlim_t>(bytes));
    setrlimit(RLIMIT_FSIZE, &limit);
    return static_cast<qint64>(before);
}

FullDisk::FullDisk(qint64 bytes)
    : before_(setLargestFile(bytes))
{
    std::signal(SIGXFSZ, SIG_IGN);
}

FullDisk::~FullDisk()
{
    setLargestFile(before_);
}

QString FullDisk::reason()
{
    return "File too large";
}

bool putLink(const QString &to, const QString &path)
{
    return QFile::link(to, path);
}

bool putPipe(const QString &path)
{
    return mkfifo(QFile::encodeName(path).constData(), 0600) == 0;
}

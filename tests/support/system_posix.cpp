#include "support/test_folder.h"

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <utility>

// Returns the limit that held before.
static rlim_t setLimit(__rlimit_resource resource, rlim_t number)
{
    rlimit limit{};
    getrlimit(resource, &limit);
    const rlim_t before = std::exchange(limit.rlim_cur, number);
    setrlimit(resource, &limit);
    return before;
}

FullDisk::FullDisk(qint64 bytes)
    : before_(static_cast<qint64>(setLimit(RLIMIT_FSIZE, static_cast<rlim_t>(bytes))))
{
    std::signal(SIGXFSZ, SIG_IGN);
}

FullDisk::~FullDisk()
{
    setLimit(RLIMIT_FSIZE, static_cast<rlim_t>(before_));
}

QString FullDisk::reason()
{
    return "File too large";
}

FewOpenFiles::FewOpenFiles(int files)
    : before_(static_cast<int>(setLimit(RLIMIT_NOFILE, static_cast<rlim_t>(files))))
{
}

FewOpenFiles::~FewOpenFiles()
{
    setLimit(RLIMIT_NOFILE, static_cast<rlim_t>(before_));
}

bool putPipe(const QString &path)
{
    return mkfifo(QFile::encodeName(path).constData(), 0600) == 0;
}

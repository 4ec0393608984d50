#include "support/test_folder.h"

#include "archive/Module1.h"
#include "files/code_page.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <csignal>
#include <sys/resource.h>

TestFolder::TestFolder()
    : before_(QDir::currentPath())
{
    QDir::setCurrent(folder_.path());
    Module1 = {};
}

TestFolder::~TestFolder()
{
    QDir::setCurrent(before_);
}

void put(const QString &path, const QByteArray &bytes)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(path));
}

QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(missing)");
}

QStringList namesIn(const QString &folder)
{
    QStringList names;
    const auto all = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
    for (const QFileInfo &entry : QDir(folder).entryInfoList(all, QDir::Name))
        names += entry.fileName() + (entry.isDir() ? "/" : "");
    return names;
}

QByteArray everyByte()
{
    QByteArray bytes;
    for (int byte = 0; byte < 256; byte += 1) {
        if (byte != '"')
            bytes += static_cast<char>(byte);
    }
    return bytes;
}

QByteArray archiveOf(const QStringList &records)
{
    QByteArray bytes("var archivio = [\r\n");
    for (qsizetype i = 0; i < records.size(); i += 1) {
        const QStringList fields = QStringList(QString::number(i + 1)) + records[i].split('|');
        for (const QString &field : fields)
            bytes += '"' + toCodePage(field) + "\",\r\n";
    }
    return bytes + " ];\r\n";
}

void putArchive(const QStringList &records)
{
    put("spartiti/archivio.js", archiveOf(records));
}

FullDisk::FullDisk(qint64 bytes)
{
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    before_ = limit.rlim_cur;
    limit.rlim_cur = static_cast<rlim_t>(bytes);
    setrlimit(RLIMIT_FSIZE, &limit);
}

FullDisk::~FullDisk()
{
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = before_;
    setrlimit(RLIMIT_FSIZE, &limit);
}

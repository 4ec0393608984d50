#include "stand/stand_files.h"

#include "files/data_folder.h"

#include <QDateTime>
#include <QDirIterator>
#include <QFileInfo>

using Kind = Result::Kind;

static Result unreadable(const QString &folder)
{
    return Result::failed(Kind::Unreadable, folder, "the folder cannot be listed");
}

static bool canBeListed(const QFileInfo &folder)
{
    return folder.isReadable() && folder.isExecutable();
}

static ListedFile listed(const QString &name, const QFileInfo &info)
{
    const QDateTime changed = info.fileTime(QFileDevice::FileModificationTime);
    return {name, info.isFile() ? info.size() : -1, changed.toMSecsSinceEpoch()};
}

ListedFile fileNow(const QString &name)
{
    return listed(name, QFileInfo(dataFile(name)));
}

FileListing listFiles(const QString &root, const Progress &progress)
{
    static constexpr int step = 500;
    static constexpr auto all = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
    static constexpr auto below = QDirIterator::Subdirectories | QDirIterator::FollowSymlinks;
    FileListing listing;
    const QString folder = dataFolder(root);
    if (const QFileInfo info(folder); info.exists() && !canBeListed(info))
        listing.result = unreadable(folder);
    for (QDirIterator entries(folder, all, below); listing.result.ok() && entries.hasNext();) {
        const QString path = entries.next();
        const QFileInfo info = entries.fileInfo();
        if (info.isDir() && !canBeListed(info))
            listing.result = unreadable(path);
        if (info.isDir())
            continue;
        listing.files += listed(path.sliced(folder.size() + 1), info);
        if (progress && listing.files.size() % step == 0
            && !progress(static_cast<int>(listing.files.size()), 0))
            listing.result = Result::failed(Kind::Cancelled, folder, "it was cancelled");
    }
    return listing;
}

bool foldsCase(const QString &root)
{
    const QStringList names = QDir(root).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    for (const QString &name : names) {
        const QString other = name == name.toUpper() ? name.toLower() : name.toUpper();
        if (other != name && !names.contains(other))
            return QFileInfo::exists(root + '/' + other);
    }
    return true;
}

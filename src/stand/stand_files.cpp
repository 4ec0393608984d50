#include "stand/stand_files.h"

#include "files/data_folder.h"
#include "files/platform.h"

#include <QDir>
#include <QFileInfo>

using Kind = Result::Kind;

namespace fs = std::filesystem;

static ListedFile listed(const QString &name, const fs::path &path)
{
    const FileState state = stateOfFile(path);
    return {name, state.size, state.time};
}

ListedFile fileNow(const QString &name)
{
    return listed(name, QFileInfo(dataFile(name)).filesystemFilePath());
}

Result cannotBeListed(const QString &folder, const std::error_code &failure)
{
    const QString reason = QString::fromStdString(failure.message());
    return Result::failed(Kind::Unreadable, folder, "it cannot be listed: " + reason);
}

// Into a folder that is a link only where it lies right in the data folder, such as that of the recordings,
// so that no link leads in a circle.
static bool isEntered(fs::recursive_directory_iterator &entry)
{
    std::error_code failure;
    const bool isFolder = entry->is_directory(failure);
    if (isFolder && entry.depth() > 0 && entry->is_symlink(failure)) {
        entry.disable_recursion_pending();
        return false;
    }
    return isFolder;
}

// Not by the iterators of Qt, which take a folder that cannot be read for an empty one.
FileListing listFiles(const QString &root, const Progress &progress)
{
    static constexpr int step = 500;
    FileListing listing;
    const QString folder = dataFolder(root);
    if (isNothingThere(folder))
        return listing;
    std::error_code failure;
    fs::recursive_directory_iterator entry(QFileInfo(folder).filesystemFilePath(),
                                           fs::directory_options::follow_directory_symlink, failure);
    for (; !failure && entry != fs::recursive_directory_iterator(); entry.increment(failure)) {
        if (isEntered(entry))
            continue;
        const QString path = QFileInfo(entry->path()).filePath();
        listing.files += listed(path.sliced(folder.size() + 1), entry->path());
        if (progress && listing.files.size() % step == 0
            && !progress(static_cast<int>(listing.files.size()), 0)) {
            listing.result = Result::failed(Kind::Cancelled, folder, "it was cancelled");
            return listing;
        }
    }
    if (failure)
        listing.result = cannotBeListed(folder, failure);
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

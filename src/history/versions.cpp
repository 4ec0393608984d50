#include "history/versions.h"

#include "files/data_folder.h"
#include "files/platform.h"
#include "files/safe_write.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <filesystem>
#include <utility>

static constexpr int mostTries = 20;
static constexpr qint64 secondsBetweenThinnings = 3600;

Versions::Versions(QString folder, std::function<QDateTime()> now, VersionLimits limits)
    : folder_(std::move(folder))
    , now_(std::move(now))
    , limits_(limits)
{
}

QList<Version> Versions::all() const
{
    QList<Version> versions;
    if (folder_.isEmpty())
        return versions;
    for (const QFileInfo &entry :
         QDir(folder_).entryInfoList(QDir::Files | QDir::NoSymLinks, QDir::Name | QDir::Reversed)) {
        const Version version = versionOf(entry.fileName(), entry.size());
        if (version.until.isValid())
            versions += version;
    }
    return versions;
}

void Versions::know()
{
    if (known_)
        return;
    QList<Version> versions = all();
    clearLeavings(versions);
    known_ = Known();
    for (const Version &version : std::as_const(versions))
        add(version);
}

static bool isSameFile(const QString &one, const QString &other)
{
    std::error_code failure;
    return std::filesystem::equivalent(QFileInfo(one).filesystemFilePath(),
                                       QFileInfo(other).filesystemFilePath(), failure)
        && !failure;
}

// What a kill has left: a second name of a file that was not replaced after all, and copies that were begun
// long ago.
void Versions::clearLeavings(QList<Version> &versions) const
{
    versions.removeIf([this](const Version &version) {
        return isSameFile(pathOf(version), dataFile(version.file)) && QFile::remove(pathOf(version));
    });
    for (const QFileInfo &entry : QDir(folder_).entryInfoList({"* *.??????"}, QDir::Files)) {
        const bool isBegun = versionOf(entry.completeBaseName(), 0).until.isValid();
        if (isBegun && entry.lastModified().secsTo(QDateTime::currentDateTime()) > secondsBetweenThinnings)
            QFile::remove(entry.filePath());
    }
}

void Versions::add(const Version &version)
{
    Shelf &shelf = known_->shelves[static_cast<size_t>(version.kind())];
    shelf.bytes[version.name()] = version.size;
    shelf.size += version.size;
}

// The name of a file of the data folder within it; empty for any other, and for those that are not kept.
static QString keptName(const QString &path)
{
    const QString prefix = QDir::cleanPath(dataFolder()) + '/';
    const QString clean = QDir::cleanPath(path);
    const QString file = clean.startsWith(prefix) ? clean.mid(prefix.size()) : QString();
    return isKept(file) ? file : QString();
}

static bool isOrdinaryFile(const QString &path)
{
    std::error_code failure;
    return std::filesystem::is_regular_file(
        std::filesystem::symlink_status(QFileInfo(path).filesystemFilePath(), failure));
}

// A link would share its bytes with the file that it points to, and that is not ours to keep from changing.
static bool linkOrCopy(const QFileInfo &file, const QString &to)
{
    if (!file.isSymLink()) {
        std::error_code failure;
        std::filesystem::create_hard_link(file.filesystemFilePath(), QFileInfo(to).filesystemFilePath(),
                                          failure);
        if (!failure && isOrdinaryFile(to))
            return true;
        if (!failure) // it is a link all the same, and could not be known as one
            QFile::remove(to);
        if (failure == std::errc::file_exists || failure == std::errc::no_such_file_or_directory)
            return false;
    }
    return !QFileInfo::exists(to) && copyFile(file.filePath(), to).ok();
}

// Finds a name that is free; somebody else may be keeping versions in the same folder.
Version Versions::store(const QString &file, const std::function<bool(const QString &)> &putAt)
{
    Version version{now_(), file, 0};
    for (int tries = 0; tries < mostTries; tries += 1) {
        if (putAt(pathOf(version))) {
            version.size = QFileInfo(pathOf(version)).size();
            return version;
        }
        if (!QFileInfo::exists(pathOf(version)) && !(tries == 0 && QDir().mkpath(folder_)))
            return {};
        version.until = version.until.addMSecs(1);
    }
    return {};
}

void Versions::keep(const QString &path)
{
    const QString file = keptName(path);
    if (file.isEmpty() || pending_.value(path).kept.until.isValid())
        return;
    Pending pending{!isMissing(path), {}};
    const QFileInfo present(path);
    if (pending.wasThere && !folder_.isEmpty() && present.isFile()) {
        know();
        pending.kept = store(file, [&](const QString &to) { return linkOrCopy(present, to); });
    }
    pending_[path] = pending;
}

void Versions::settle(const QString &path, bool wasReplaced)
{
    if (!pending_.contains(path))
        return;
    const QString file = keptName(path);
    const Pending pending = pending_.take(path);
    const bool isKept = pending.kept.until.isValid();
    if (!wasReplaced) {
        if (isKept)
            QFile::remove(pathOf(pending.kept));
        return;
    }
    last_.remove(file);
    if (isKept || !pending.wasThere)
        last_[file] = pending.kept;
    if (!isKept)
        return;
    add(pending.kept);
    thin();
}

Result Versions::secure(const QString &path)
{
    keep(path);
    const Pending pending = pending_.value(path);
    if (!pending.wasThere || pending.kept.until.isValid())
        return {};
    pending_.remove(path);
    return Result::failed(Result::Kind::Unwritable, path, "what is there could not be kept");
}

std::optional<Version> Versions::takeLast(const QString &file)
{
    const auto found = last_.constFind(file);
    if (found == last_.cend())
        return std::nullopt;
    Version version = *found;
    last_.erase(found);
    return version;
}

static Result removed(const QString &path)
{
    if (!QFileInfo(path).isSymbolicLink() && !QFileInfo(path).isWritable())
        return Result::failed(Result::Kind::Unwritable, path, "it is protected against writing");
    if (QFile file(path); !file.remove())
        return Result::failed(Result::Kind::Unwritable, path, file.errorString());
    return {};
}

QList<Result> Versions::takeAway(const QStringList &paths)
{
    QList<Result> results;
    for (const QString &path : paths)
        results += isNothingThere(path) ? Result() : secure(path);
    syncFolder(folder_); // there they are safe before they go here
    QStringList folders;
    for (qsizetype i = 0; i < paths.size(); i += 1) {
        if (!results[i].ok() || isNothingThere(paths[i]))
            continue;
        results[i] = removed(paths[i]);
        folders += QFileInfo(paths[i]).path();
    }
    folders.removeDuplicates();
    for (const QString &folder : std::as_const(folders))
        syncFolder(folder);
    for (qsizetype i = 0; i < paths.size(); i += 1)
        settle(paths[i], results[i].ok());
    return results;
}

bool Versions::keepBytes(const QString &file, QByteArrayView bytes)
{
    if (folder_.isEmpty())
        return false;
    know();
    const Version kept =
        store(file, [&](const QString &to) { return !QFileInfo::exists(to) && replaceFile(to, bytes).ok(); });
    if (!kept.until.isValid())
        return false;
    add(kept);
    thin();
    return true;
}

// Going through all of them takes longer than a save may: the rule is kept once an hour, the limits always.
void Versions::thin()
{
    const QDateTime time = now_();
    const QDateTime &last = known_->thinned;
    if (!last.isValid() || qAbs(last.secsTo(time)) >= secondsBetweenThinnings) {
        for (const Version &version : outlived(all(), time, limits_))
            QFile::remove(pathOf(version));
        known_ = Known();
        for (const Version &version : all())
            add(version);
        known_->thinned = time;
    }
    dropOldest(known_->shelves[static_cast<size_t>(Version::Kind::Data)], limits_.data);
    dropOldest(known_->shelves[static_cast<size_t>(Version::Kind::Score)], limits_.scores);
}

void Versions::dropOldest(Shelf &shelf, qint64 limit) const
{
    while (shelf.size > limit && !shelf.bytes.empty()) {
        const auto oldest = shelf.bytes.begin();
        QFile::remove(folder_ + '/' + oldest->first);
        shelf.size -= oldest->second;
        shelf.bytes.erase(oldest);
    }
}

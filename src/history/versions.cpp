#include "history/versions.h"

#include "files/data_folder.h"
#include "files/platform.h"

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
    for (const QFileInfo &entry : QDir(folder_).entryInfoList(QDir::Files, QDir::Name | QDir::Reversed)) {
        const Version version = versionOf(entry.fileName(), entry.size());
        if (version.until.isValid())
            versions += version;
    }
    return versions;
}

Versions::Known &Versions::known()
{
    if (!known_) {
        known_.emplace();
        for (const Version &version : all())
            add(version);
    }
    return *known_;
}

void Versions::add(const Version &version)
{
    known_->versions += version;
    (version.kind() == Version::Kind::Data ? known_->data : known_->scores) += version.size;
}

// The name of a file of the data folder within it; empty for any other, and for those that are not kept.
static QString keptName(const QString &path)
{
    const QString prefix = QDir::cleanPath(dataFolder()) + '/';
    const QString clean = QDir::cleanPath(path);
    const QString file = clean.startsWith(prefix) ? clean.mid(prefix.size()) : QString();
    return isKept(file) ? file : QString();
}

// A link would share its bytes with the file that it points to, and that is not ours to keep from changing.
static bool linkOrCopy(const QFileInfo &file, const QString &to)
{
    std::error_code failure;
    if (!file.isSymLink())
        std::filesystem::create_hard_link(file.filesystemFilePath(), QFileInfo(to).filesystemFilePath(),
                                          failure);
    return (!file.isSymLink() && !failure) || QFile::copy(file.filePath(), to);
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
    if (file.isEmpty())
        return;
    Pending pending{!isMissing(path), {}};
    const QFileInfo present(path);
    if (pending.wasThere && !folder_.isEmpty() && present.isFile()) {
        known();
        pending.kept = store(file, [&](const QString &to) { return linkOrCopy(present, to); });
    }
    pending_[path] = pending;
}

void Versions::settle(const QString &path, bool wasReplaced)
{
    const QString file = keptName(path);
    const Pending pending = pending_.take(path);
    const bool isKept = pending.kept.until.isValid();
    if (file.isEmpty())
        return;
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

std::optional<Version> Versions::lastOf(const QString &file) const
{
    const auto found = last_.find(file);
    return found == last_.end() ? std::nullopt : std::optional(*found);
}

Result Versions::takeAway(const QString &path)
{
    if (isMissing(path))
        return {};
    keep(path);
    const bool isKept = pending_[path].kept.until.isValid();
    const bool isGone = isKept && QFile::remove(path);
    const QString reason = isKept ? systemReason() : "no earlier version of it could be kept";
    settle(path, isGone);
    if (!isGone)
        return Result::failed(Result::Kind::Unwritable, path, reason);
    syncFolder(QFileInfo(path).path());
    return {};
}

bool Versions::keepBytes(const QString &file, QByteArrayView bytes)
{
    if (folder_.isEmpty())
        return false;
    known();
    const Version kept = store(file, [&](const QString &to) {
        QFile stored(to);
        if (!stored.open(QIODevice::WriteOnly | QIODevice::NewOnly))
            return false;
        return (stored.write(bytes.data(), bytes.size()) == bytes.size() && stored.flush())
            || (stored.remove(), false);
    });
    if (kept.until.isValid())
        add(kept);
    return kept.until.isValid();
}

// Going through all of them takes longer than a save may: it is done where the limits ask for it, else once
// an hour.
void Versions::thin()
{
    Known &now = known();
    const QDateTime time = now_();
    const bool isDue = !now.thinned.isValid() || now.thinned.secsTo(time) >= secondsBetweenThinnings;
    if (!isDue && now.data <= limits_.data && now.scores <= limits_.scores)
        return;
    for (const Version &version : outlived(now.versions, time, limits_))
        QFile::remove(pathOf(version));
    known_.reset();
    known().thinned = time;
}

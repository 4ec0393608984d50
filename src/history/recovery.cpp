#include "history/recovery.h"

#include "files/safe_write.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>

static constexpr int places = 9; // programs that can run in one folder and keep what is typed
static constexpr qint64 afterLast = 2'000; // milliseconds
static constexpr qint64 afterFirst = 10'000;

Recovery::Recovery(QString folder, std::function<Unsaved()> unsaved)
    : folder_(std::move(folder))
    , unsaved_(std::move(unsaved))
{
    due_.setSingleShot(true);
    connect(&due_, &QTimer::timeout, this, &Recovery::write);
    if (!folder_.isEmpty())
        takePlace();
}

QString Recovery::pathOf(int place) const
{
    return QStringLiteral("%1/unsaved-%2.json").arg(folder_).arg(place);
}

QString Recovery::lockOf(int place) const
{
    return QStringLiteral("%1/running-%2.lock").arg(folder_).arg(place);
}

static std::unique_ptr<QLockFile> locked(const QString &path)
{
    auto lock = std::make_unique<QLockFile>(path);
    lock->setStaleLockTime(0); // however long ago: a program that runs holds it, a dead one does not
    return lock->tryLock() ? std::move(lock) : nullptr;
}

void Recovery::takePlace()
{
    for (int place = 1; place <= places && !lock_; place += 1) {
        lock_ = locked(lockOf(place));
        if (lock_)
            place_ = place;
    }
}

void Recovery::note()
{
    if (!canKeep())
        return;
    if (!sinceFirst_.isValid())
        sinceFirst_.start();
    due_.start(static_cast<int>(std::clamp<qint64>(afterFirst - sinceFirst_.elapsed(), 0, afterLast)));
}

bool Recovery::write()
{
    due_.stop();
    if (!canKeep() || !sinceFirst_.isValid())
        return canKeep();
    sinceFirst_.invalidate();
    const Unsaved unsaved = unsaved_();
    if (unsaved.songs.isEmpty())
        return !QFileInfo::exists(pathOf(place_)) || QFile::remove(pathOf(place_));
    return replaceFile(pathOf(place_), bytesOf(unsaved)).ok();
}

void Recovery::forget()
{
    due_.stop();
    sinceFirst_.invalidate();
    if (canKeep())
        QFile::remove(pathOf(place_));
}

bool Recovery::takeOver(const QString &left)
{
    note();
    return write() && (left == pathOf(place_) || QFile::remove(left));
}

QStringList Recovery::leftBehind() const
{
    QStringList left;
    for (int place = 1; place <= places; place += 1) {
        const QString path = pathOf(place);
        if (QFileInfo::exists(path) && (place == place_ || locked(lockOf(place))))
            left += path;
    }
    std::sort(left.begin(), left.end(), [](const QString &one, const QString &other) {
        return QFileInfo(one).lastModified() < QFileInfo(other).lastModified();
    });
    return left;
}

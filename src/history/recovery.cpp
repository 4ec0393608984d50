#include "history/recovery.h"

#include "files/lock.h"
#include "files/safe_write.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>

static constexpr int places = 9; // programs that can run in one folder and keep what is typed

Recovery::Recovery(QString folder, std::function<Unsaved()> unsaved, std::function<bool()> mayWrite,
                   Waits waits)
    : folder_(std::move(folder))
    , unsaved_(std::move(unsaved))
    , mayWrite_(std::move(mayWrite))
    , waits_(waits)
{
    due_.setSingleShot(true);
    connect(&due_, &QTimer::timeout, this, &Recovery::writeWhenItMay);
}

QString Recovery::pathOf(int place) const
{
    return QStringLiteral("%1/unsaved-%2.json").arg(folder_).arg(place);
}

QString Recovery::lockOf(int place) const
{
    return QStringLiteral("%1/running-%2.lock").arg(folder_).arg(place);
}

// The first place that is free and holds nothing of another program's. Only where there is a lock, a program
// may run.
void Recovery::begin()
{
    if (folder_.isEmpty())
        return;
    for (int place = 1; place <= places; place += 1) {
        const bool isMine = !lock_ && !QFileInfo::exists(pathOf(place));
        if (!isMine && !QFileInfo::exists(lockOf(place)))
            continue;
        auto lock = std::make_unique<QLockFile>(lockOf(place));
        if (!takeLock(*lock)) {
            isSecond_ |= lock->error() == QLockFile::LockFailedError;
        } else if (isMine) {
            lock_ = std::move(lock);
            place_ = place;
        }
    }
}

void Recovery::note()
{
    if (!canKeep())
        return;
    sinceLast_.start();
    if (sinceFirst_.isValid())
        return; // setting the timer anew for each key would take as long as the key
    sinceFirst_.start();
    due_.start(static_cast<int>(waits_.afterLast));
}

void Recovery::writeWhenItMay()
{
    const qint64 wait =
        std::min(waits_.afterLast - sinceLast_.elapsed(), waits_.afterFirst - sinceFirst_.elapsed());
    if (wait > 0)
        due_.start(static_cast<int>(wait));
    else if (mayWrite_ && !mayWrite_())
        due_.start(static_cast<int>(waits_.afterLast));
    else
        write();
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
    return write() && QFile::remove(left);
}

QStringList Recovery::leftBehind() const
{
    QStringList left;
    for (int place = 1; place <= places; place += 1) {
        const QString path = pathOf(place);
        QLockFile lock(lockOf(place));
        if (place != place_ && QFileInfo::exists(path) && takeLock(lock))
            left += path;
    }
    std::sort(left.begin(), left.end(), [](const QString &one, const QString &other) {
        return QFileInfo(one).lastModified() < QFileInfo(other).lastModified();
    });
    return left;
}

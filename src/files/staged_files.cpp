#include "files/staged_files.h"

#include "files/data_folder.h"
#include "files/lock.h"
#include "files/platform.h"
#include "files/replacement.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>

using Kind = Result::Kind;

static QString notePath()
{
    return arrivingPath("note.txt");
}

// The files that are ready, by their names below spartiti. With an ending of six letters they are what a
// kill has left of a file that was being made.
static QStringList readyNames(const QString &ending = {})
{
    QStringList names = QDir(arrivingPath()).entryList({"*L.jpg" + ending, "*R.jpg" + ending}, QDir::Files);
    for (const QString &name : QDir(arrivingPath("audio")).entryList({"*.mp3" + ending}, QDir::Files))
        names += "audio/" + name;
    return names;
}

// The note goes first: without it the rest means nothing to the next start.
static void clearFolder()
{
    if (!isMissing(notePath()) && !QFile::remove(notePath()))
        return;
    const QString broken = ".??????";
    for (const QString &name : readyNames() + readyNames(broken))
        QFile::remove(arrivingPath(name));
    for (const QString &name : QDir(arrivingPath()).entryList({"note.txt" + broken}, QDir::Files))
        QFile::remove(arrivingPath(name));
    QDir().rmdir(arrivingPath("audio"));
}

static QString lockPath()
{
    return arrivingPath("lock");
}

StagedFiles::StagedFiles()
    : lock_(lockPath())
{
}

StagedFiles::~StagedFiles()
{
    if (!isHeld_)
        return;
    clearFolder();
    leave();
    QDir().rmdir(arrivingPath());
}

Result StagedFiles::begin()
{
    if (!QDir().mkpath(arrivingPath()))
        return Result::failed(Kind::Unwritable, arrivingPath(), "the folder cannot be made");
    if (takeHold())
        return {};
    if (lock_.error() == QLockFile::LockFailedError)
        return Result::failed(Kind::Refused, arrivingPath(),
                              "Another program is just adding songs to this archive.");
    const Result failed = Result::failed(Kind::Unwritable, lockPath(), systemReason());
    QDir().rmdir(arrivingPath());
    return failed;
}

bool StagedFiles::resume()
{
    return QFileInfo(arrivingPath()).isDir() && takeHold();
}

bool StagedFiles::takeHold()
{
    isHeld_ = takeLock(lock_);
    return isHeld_;
}

void StagedFiles::leave()
{
    isHeld_ = false;
    lock_.unlock();
}

static QString arrivingFor(const QString &target)
{
    return arrivingPath(target.sliced(dataFolder().size() + 1));
}

QList<Result> StagedFiles::make(QList<FileCopy> files, const Progress &progress)
{
    for (FileCopy &file : files)
        file.target = arrivingFor(file.target);
    return copyFiles(files, progress);
}

Result StagedFiles::writeNote(const QByteArray &note)
{
    const Result written = replaceFile(notePath(), note);
    syncFolder(dataFolder());
    return written;
}

Result StagedFiles::readNote(QByteArray &note) const
{
    return readWhole(notePath(), note);
}

bool StagedFiles::isReady(const QString &target) const
{
    return !isMissing(arrivingFor(target));
}

static Result putInPlaceOf(const QString &target)
{
    const QString ready = arrivingFor(target);
    if (putInPlace(ready, target, target))
        return {};
    if (errno == EXDEV) // spartiti/audio may be a link to another disk
        return copyFile(ready, target);
    const QString reason = systemReason();
    const bool isDone = isMissing(ready) && !isMissing(target);
    return isDone ? Result{} : Result::failed(Kind::Unwritable, target, reason);
}

QList<Result> StagedFiles::putInPlace(const QStringList &targets)
{
    QStringList folders;
    for (const QString &target : targets)
        folders += QFileInfo(target).path();
    folders.removeDuplicates();
    for (const QString &folder : std::as_const(folders))
        QDir().mkpath(folder);
    QList<Result> results;
    for (const QString &target : targets)
        results += putInPlaceOf(target);
    for (const QString &folder : std::as_const(folders))
        syncFolder(folder);
    return results;
}

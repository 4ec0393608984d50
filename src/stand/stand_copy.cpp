#include "stand/stand_copy.h"

#include "files/data_folder.h"
#include "files/platform.h"
#include "files/safe_write.h"
#include "stand/own_names.h"
#include "text/counting.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QStorageInfo>

using Kind = Result::Kind;
using Task = PlannedFile::Task;

namespace
{
class Copying
{
public:
    Copying(const QString &root, const Progress &progress)
        : root_(root)
        , progress_(progress)
    {
    }

    StandCopy run();

private:
    void begin();
    bool look();
    bool lookAgain();
    QList<PlannedFile> toDo(bool dataFiles) const;
    bool copyAll(const QList<PlannedFile> &files);
    bool copyGroup(const QList<PlannedFile> &group);
    bool copyDataFiles(const QList<PlannedFile> &files);
    bool copyFilesOf(const QList<PlannedFile> &files, const QList<FileCopy> &copies);
    bool take(const PlannedFile &planned, const Result &result);
    bool goesOn(int done);
    bool isThere() const;
    bool fail(const Result &result);
    void finish();

    const QString root_;
    const Progress &progress_;
    QByteArray disk_; // the one that the stand's folder lay on at the beginning
    StandLook look_;
    QHash<QString, ListedFile> done_; // those here that were copied, as they were then
    QHash<QString, QString> notCopied_;
    bool isGone_ = false;
    StandCopy copy_;
};

bool Copying::fail(const Result &result)
{
    copy_.result = result;
    return false;
}

// A stick that was pulled out leaves an empty folder, or none, on the disk below.
bool Copying::isThere() const
{
    return QFileInfo(dataFolder(root_)).isDir() && QStorageInfo(root_).device() == disk_;
}

static Result gone(const QString &root)
{
    return Result::failed(Kind::Unwritable, root, "the stand is no longer there");
}

bool Copying::look()
{
    look_ = lookAtStand(root_, [this](int, int) { return !progress_ || progress_(copy_.copied, copy_.all); });
    copy_.songs = look_.songs;
    copy_.playlists = look_.playlists;
    return look_.result.ok() || fail(look_.result);
}

bool Copying::lookAgain()
{
    return isThere() ? look() : fail(gone(root_));
}

// What was copied in this run is not copied again, even if the disk there does not keep times; but it is as
// soon as it has changed here at all.
QList<PlannedFile> Copying::toDo(bool dataFiles) const
{
    QList<PlannedFile> files;
    for (const PlannedFile &planned : look_.plan) {
        const QString &name = planned.file.name;
        const bool isHere = planned.isToBeCopied() || planned.task == Task::Same;
        if (!isHere || isDataFile(name) != dataFiles || notCopied_.contains(name))
            continue;
        const auto done = done_.constFind(name);
        const bool isDone = done == done_.constEnd()
            ? planned.task == Task::Same
            : *done == planned.file && planned.task != Task::New && planned.sizeThere == planned.file.size;
        if (!isDone)
            files += planned;
    }
    return files;
}

// Nothing is asked behind the look at the stand, lest a file be written where it was.
bool Copying::goesOn(int done)
{
    if (progress_ && !progress_(copy_.copied + done, copy_.all))
        return false;
    isGone_ = !QFileInfo(dataFolder(root_)).isDir();
    return !isGone_;
}

static bool hasChanged(const ListedFile &file)
{
    return !(fileNow(file.name) == file);
}

// False ends the copying: a disk that takes no more, or a page without which the archive must not go.
bool Copying::take(const PlannedFile &planned, const Result &result)
{
    const QString &name = planned.file.name;
    if (result.ok()) {
        copy_.copied += 1;
        copy_.hasNewArchive |= name == archiveName();
        done_[name] = planned.file;
        return true;
    }
    if (hasChanged(planned.file))
        return true; // or has gone; the next round looks again
    if (!isThere())
        return fail(gone(root_));
    if (isOwnName(name))
        return fail(result);
    notCopied_[name] = result.reason;
    return true;
}

bool Copying::copyFilesOf(const QList<PlannedFile> &files, const QList<FileCopy> &copies)
{
    if (!isThere())
        return fail(gone(root_));
    const QList<Result> results = copyFiles(copies, [this](int done, int) { return goesOn(done); });
    for (qsizetype i = 0; i < results.size(); i += 1) {
        if (!take(files[i], results[i]))
            return false;
    }
    if (results.size() < files.size())
        return fail(isGone_ ? gone(root_) : Result::failed(Kind::Cancelled, root_, "it was cancelled"));
    return true;
}

static FileCopy copyOf(const PlannedFile &planned, const QString &root)
{
    const QString &name = planned.file.name;
    return {
        dataFile(name), dataFile(name, root), {}, QDateTime::fromMSecsSinceEpoch(planned.file.time), true};
}

bool Copying::copyGroup(const QList<PlannedFile> &group)
{
    QList<FileCopy> copies;
    for (const PlannedFile &planned : group)
        copies += copyOf(planned, root_);
    return copyFilesOf(group, copies);
}

bool Copying::copyAll(const QList<PlannedFile> &files)
{
    static constexpr qsizetype mostFiles = 100;
    QList<PlannedFile> group;
    qint64 bytes = 0;
    for (const PlannedFile &planned : files) {
        group += planned;
        bytes += planned.file.size;
        if (group.size() < mostFiles && bytes < bytesAtATime)
            continue;
        if (!copyGroup(group))
            return false;
        group.clear();
        bytes = 0;
    }
    return group.isEmpty() || copyGroup(group);
}

// As they were before it was last seen that all else here is there too: they tell of nothing that came later.
bool Copying::copyDataFiles(const QList<PlannedFile> &files)
{
    QList<FileCopy> copies;
    for (const PlannedFile &planned : files) {
        QByteArray bytes;
        if (const Result read = readWhole(dataFile(planned.file.name), bytes); !read.ok())
            return hasChanged(planned.file) || fail(read);
        copies += copyOf(planned, root_);
        copies.last().make = [bytes](QByteArray &made) {
            made = bytes;
            return Result();
        };
    }
    const QList<ListedFile> before = look_.here;
    if (!lookAgain())
        return false;
    if (look_.here != before)
        return true; // all once more
    for (qsizetype i = 0; i < copies.size(); i += 1) {
        if (!copyFilesOf({files[i]}, {copies[i]}))
            return false;
    }
    return true;
}

void Copying::finish()
{
    for (const PlannedFile &planned : look_.plan) {
        const QString &name = planned.file.name;
        if (planned.task == Task::NotToBeCopied)
            copy_.notCopied += name + ": " + planned.reason;
        else if (notCopied_.contains(name))
            copy_.notCopied += name + ": " + notCopied_[name];
    }
    if (copy_.copied == 0)
        return;
    QFile archive(archivePath(root_));
    // Windows forces a file onto the disk only where it may be written.
    const bool isOpen =
        archive.open(QIODevice::ReadWrite | QIODevice::ExistingOnly) || archive.open(QIODevice::ReadOnly);
    if (!isOpen || (!syncFileSystem(archive.handle()) && !syncFile(archive.handle())))
        copy_.result = Result::failed(Kind::Unwritable, root_, systemReason());
}

void Copying::begin()
{
    if (!look())
        return;
    disk_ = QStorageInfo(root_).device();
    if (!QDir().mkpath(dataFolder(root_)))
        fail(Result::failed(Kind::Unwritable, dataFolder(root_), "the folder cannot be made"));
}

StandCopy Copying::run()
{
    static constexpr int mostRounds = 10; // three where nothing changes here meanwhile
    begin();
    for (int round = 0; copy_.result.ok() && round < mostRounds; round += 1) {
        const QList<PlannedFile> files = toDo(false), dataFiles = toDo(true);
        copy_.all = copy_.copied + static_cast<int>(files.size() + dataFiles.size());
        if (files.isEmpty() && dataFiles.isEmpty()) {
            finish();
            return copy_;
        }
        if (!(files.isEmpty() ? copyDataFiles(dataFiles) : copyAll(files)) || !lookAgain())
            return copy_;
    }
    if (copy_.result.ok())
        copy_.result =
            Result::failed(Kind::Refused, dataFolder(), "The files of the archive change all the time.");
    return copy_;
}
} // namespace

StandCopy copyToStand(const QString &root, const Progress &progress)
{
    return Copying(root, progress).run();
}

static QString howFarItCame(const StandCopy &copy)
{
    if (copy.copied == 0)
        return "Nothing on the stand has changed.";
    const QString archive = copy.hasNewArchive
        ? "and archivio.js, which comes last, is among them."
        : "and archivio.js, which comes last, is there as it was before.";
    return QString::number(copy.copied) + " of " + counted(copy.all, "file")
        + " are on the stand, each of them whole, read back and compared, " + archive
        + " The next copying goes on from there.";
}

QString textOf(const StandCopy &copy)
{
    const QString what = counted(copy.songs, "song") + ", " + counted(copy.playlists, "playlist");
    if (copy.result.kind == Kind::Cancelled)
        return "Cancelled. " + howFarItCame(copy);
    if (!copy.result.ok())
        return "Not all of it was copied.\n" + copy.result.text() + '\n' + howFarItCame(copy);
    if (copy.copied == 0)
        return what + ": all of it was on the stand already. You can take it.";
    return what + ": all of it is on the stand, read back and compared. You can take it.";
}

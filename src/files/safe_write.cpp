#include "files/safe_write.h"

#include "files/data_folder.h"
#include "files/platform.h"
#include "files/replacement.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <memory>
#include <vector>

using Kind = Result::Kind;
using Link = Replacement::Link;

Result openToRead(QFile &file)
{
    if (isMissing(file.fileName()))
        return Result::failed(Kind::Missing, file.fileName(), "there is no such file");
    if (const QFileInfo info(file.fileName()); info.exists() && !info.isFile())
        return Result::failed(Kind::Unreadable, file.fileName(), "this is not a file");
    if (!file.open(QIODevice::ReadOnly))
        return Result::failed(Kind::Unreadable, file.fileName(), file.errorString());
    return {};
}

Result readWhole(const QString &path, QByteArray &bytes)
{
    QFile file(path);
    if (const Result opened = openToRead(file); !opened.ok())
        return opened;
    bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return Result::failed(Kind::Unreadable, path, file.errorString());
    return {};
}

bool holdsJust(const QString &path, QByteArrayView bytes)
{
    static constexpr qint64 chunkSize = 1 << 18;
    QFile file(path);
    if (!openToRead(file).ok() || file.size() != bytes.size())
        return false;
    QByteArray chunk(qMin(chunkSize, file.size()), Qt::Uninitialized);
    for (qsizetype compared = 0; compared < bytes.size();) {
        const qint64 got = file.read(chunk.data(), qMin<qint64>(chunk.size(), bytes.size() - compared));
        if (got <= 0 || bytes.sliced(compared, got) != QByteArrayView(chunk).first(got))
            return false;
        compared += got;
    }
    return true;
}

Result replaceFile(const QString &path, QByteArrayView bytes)
{
    return replaceFile(path, QList<QByteArrayView>{bytes});
}

static Result syncAndPutInPlace(Replacement &file)
{
    Result done = file.sync();
    if (done.ok())
        done = file.putInPlace();
    if (done.ok())
        syncFolder(file.folder());
    return done;
}

Result replaceFile(const QString &path, const QList<QByteArrayView> &pieces)
{
    Replacement file(path, Link::Followed);
    if (const Result opened = file.open(); !opened.ok())
        return opened;
    for (const QByteArrayView piece : pieces) {
        if (const Result written = file.write(piece); !written.ok())
            return written;
    }
    if (const Result finished = file.finish(); !finished.ok())
        return finished;
    return syncAndPutInPlace(file);
}

static Result copyContents(QFile &from, Replacement &to)
{
    static constexpr qint64 chunkSize = 1 << 16;
    QByteArray chunk(chunkSize, Qt::Uninitialized);
    while (true) {
        const qint64 got = from.read(chunk.data(), chunkSize);
        if (got < 0)
            return Result::failed(Kind::Unreadable, from.fileName(), from.errorString());
        if (got == 0)
            return to.finish();
        if (const Result written = to.write(QByteArrayView(chunk.constData(), got)); !written.ok())
            return written;
    }
}

static bool isSameFile(const QString &one, const QString &other)
{
    const QString canonical = QFileInfo(one).canonicalFilePath();
    return !canonical.isEmpty() && canonical == QFileInfo(other).canonicalFilePath();
}

// Writes the copy beside its target. Fine with `to` not open: they are one file, there is nothing to do.
static Result prepareCopy(const FileCopy &copy, Replacement &to)
{
    QFile from(copy.source);
    if (const Result opened = openToRead(from); !opened.ok())
        return opened;
    if (isSameFile(copy.source, copy.target))
        return {};
    if (const Result opened = to.open(); !opened.ok())
        return opened;
    return copyContents(from, to);
}

Result copyFile(const QString &source, const QString &target)
{
    Replacement to(target, Link::Replaced);
    if (const Result prepared = prepareCopy({source, target}, to); !prepared.ok() || !to.isOpen())
        return prepared;
    return syncAndPutInPlace(to);
}

static void syncFolders(QStringList folders)
{
    folders.removeDuplicates();
    for (const QString &folder : std::as_const(folders))
        syncFolder(folder);
}

Result moveFile(const QString &source, const QString &target)
{
    if (isNothingThere(source))
        return Result::failed(Kind::Missing, source, "there is no such file");
    if (const Result made = makeFolderOf(target); !made.ok())
        return made;
    if (!renameOverNothing(source, target))
        return Result::failed(Kind::Unwritable, target, systemReason());
    syncFolders({QFileInfo(target).path(), QFileInfo(source).path()});
    return {};
}

// A copy that lies beside its target. Only those that came out well keep their file open.
struct PreparedCopy {
    const FileCopy &copy;
    std::unique_ptr<Replacement> file;
    Result result;
    QByteArray made; // what it is to hold, where that lies in no file and is to be proven
};

// As prepareCopy(), of bytes that are made only now.
static Result prepareMade(const FileCopy &copy, Replacement &to, QByteArray &bytes)
{
    if (const Result made = copy.make(bytes); !made.ok())
        return made;
    if (const Result opened = to.open(); !opened.ok())
        return opened;
    const Result written = to.write(bytes);
    return written.ok() ? to.finish() : written;
}

static PreparedCopy prepared(const FileCopy &copy)
{
    PreparedCopy prepared{copy, std::make_unique<Replacement>(copy.target, Link::Replaced), {}, {}};
    Replacement &file = *prepared.file;
    prepared.result = copy.make ? prepareMade(copy, file, prepared.made) : prepareCopy(copy, file);
    if (!prepared.result.ok() || !file.isOpen()) {
        prepared.file.reset();
        return prepared;
    }
    if (!copy.isProven)
        prepared.made.clear();
    if (copy.time.isValid())
        file.setTime(copy.time);
    beginSync(file.handle());
    return prepared;
}

static void syncGroup(std::vector<PreparedCopy> &group)
{
    const auto open = std::ranges::find_if(group, [](const auto &copy) { return copy.file != nullptr; });
    if (open == group.end() || syncFileSystem(open->file->handle()))
        return;
    for (PreparedCopy &copy : group) {
        if (copy.file)
            copy.result = copy.file->sync();
    }
}

static bool holdTheSame(const QString &one, const QString &other)
{
    static constexpr qint64 chunkSize = 1 << 18;
    QFile oneFile(one), otherFile(other);
    if (!openToRead(oneFile).ok() || !openToRead(otherFile).ok() || oneFile.size() != otherFile.size())
        return false;
    while (!oneFile.atEnd()) {
        const QByteArray chunk = oneFile.read(chunkSize);
        if (chunk.isEmpty() || chunk != otherFile.read(chunkSize))
            return false;
    }
    return true;
}

// What is on the disk by now is compared with what was to get there.
static void proveGroup(std::vector<PreparedCopy> &group)
{
    for (PreparedCopy &prepared : group) {
        if (!prepared.copy.isProven || !prepared.file || !prepared.result.ok())
            continue;
        forgetCached(prepared.file->handle());
        const QString written = prepared.file->writtenPath();
        const bool isWhole = prepared.copy.make ? holdsJust(written, prepared.made)
                                                : holdTheSame(prepared.copy.source, written);
        if (!isWhole)
            prepared.result = Result::failed(Kind::Unwritable, prepared.copy.target,
                                             "what was read back is not what was to be written");
    }
}

static void putGroupInPlace(std::vector<PreparedCopy> &group)
{
    QStringList folders;
    for (PreparedCopy &copy : group) {
        if (!copy.file || !copy.result.ok())
            continue;
        copy.result = copy.file->putInPlace();
        folders += copy.file->folder();
    }
    syncFolders(folders);
}

QList<Result> copyFiles(const QList<FileCopy> &copies, const Progress &progress)
{
    static constexpr size_t groupSize = 100; // each holds a file open; systems allow as few as 256
    QList<Result> results;
    for (auto next = copies.begin(); next != copies.end();) {
        std::vector<PreparedCopy> group;
        for (; next != copies.end() && group.size() < groupSize; ++next) {
            const auto done = static_cast<int>(next - copies.begin());
            if (progress && !progress(done, static_cast<int>(copies.size())))
                return results;
            group.push_back(prepared(*next));
        }
        syncGroup(group);
        proveGroup(group);
        putGroupInPlace(group);
        for (const PreparedCopy &copy : group)
            results += copy.result;
    }
    return results;
}

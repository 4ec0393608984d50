#include "files/safe_write.h"

#include "files/data_folder.h"
#include "files/platform.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <algorithm>
#include <memory>
#include <vector>

using Kind = Result::Kind;

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

static Result unwritable(const QSaveFile &file, const QString &reason)
{
    return Result::failed(Kind::Unwritable, file.fileName(), reason);
}

static Result makeFolderOf(const QString &path)
{
    const QString folder = QFileInfo(path).path();
    if (QDir().mkpath(folder))
        return {};
    const auto reason = QStringLiteral("the folder %1 cannot be made");
    return Result::failed(Kind::Unwritable, path, reason.arg(shownPath(folder)));
}

static Result openToReplace(QSaveFile &file)
{
    if (const Result made = makeFolderOf(file.fileName()); !made.ok())
        return made;
    if (!file.open(QIODevice::WriteOnly))
        return unwritable(file, file.errorString());
    return {};
}

// A disk that fills up takes a part first and gives the reason only for the rest.
static Result writeAll(QSaveFile &file, QByteArrayView bytes)
{
    while (!bytes.isEmpty()) {
        const qint64 written = file.write(bytes.data(), bytes.size());
        if (written <= 0)
            return unwritable(file, file.errorString());
        bytes = bytes.sliced(written);
    }
    return {};
}

// The order of what follows is not optional: a bare commit() flushes too late, ignores a failure to do so,
// and renames an empty file over the old one.
static Result finishContents(QSaveFile &file, qint64 expectedSize)
{
    if (!file.flush()) // one that stopped half-way leaves its reason in errno alone
        return unwritable(file, systemReason());
    if (file.size() != expectedSize)
        return unwritable(file, "not all of it could be written");
    return {};
}

static Result syncContents(const QSaveFile &file)
{
    return syncFile(file.handle()) ? Result() : unwritable(file, systemReason());
}

static Result commit(QSaveFile &file)
{
    return file.commit() ? Result() : unwritable(file, file.errorString());
}

static Result putInPlace(QSaveFile &file)
{
    if (const Result synced = syncContents(file); !synced.ok())
        return synced;
    if (const Result committed = commit(file); !committed.ok())
        return committed;
    syncFolder(QFileInfo(file.fileName()).path());
    return {};
}

Result replaceFile(const QString &path, QByteArrayView bytes)
{
    return replaceFile(path, QList<QByteArrayView>{bytes});
}

Result replaceFile(const QString &path, const QList<QByteArrayView> &pieces)
{
    QSaveFile file(path);
    if (const Result opened = openToReplace(file); !opened.ok())
        return opened;
    qint64 size = 0;
    for (const QByteArrayView piece : pieces) {
        if (const Result written = writeAll(file, piece); !written.ok())
            return written;
        size += piece.size();
    }
    if (const Result finished = finishContents(file, size); !finished.ok())
        return finished;
    return putInPlace(file);
}

static Result copyContents(QFile &from, QSaveFile &to)
{
    static constexpr qint64 chunkSize = 1 << 16;
    QByteArray chunk(chunkSize, Qt::Uninitialized);
    qint64 copied = 0;
    while (true) {
        const qint64 got = from.read(chunk.data(), chunkSize);
        if (got < 0)
            return Result::failed(Kind::Unreadable, from.fileName(), from.errorString());
        if (got == 0)
            return finishContents(to, copied);
        if (const Result written = writeAll(to, QByteArrayView(chunk.constData(), got)); !written.ok())
            return written;
        copied += got;
    }
}

static bool isSameFile(const QString &one, const QString &other)
{
    const QString canonical = QFileInfo(one).canonicalFilePath();
    return !canonical.isEmpty() && canonical == QFileInfo(other).canonicalFilePath();
}

// Writes the copy beside its target. Fine with `to` not open: they are one file, there is nothing to do.
static Result prepareCopy(const QString &source, QSaveFile &to)
{
    QFile from(source);
    if (const Result opened = openToRead(from); !opened.ok())
        return opened;
    if (isSameFile(source, to.fileName()))
        return {};
    if (const Result opened = openToReplace(to); !opened.ok())
        return opened;
    return copyContents(from, to);
}

Result copyFile(const QString &source, const QString &target)
{
    QSaveFile to(target);
    if (const Result prepared = prepareCopy(source, to); !prepared.ok() || !to.isOpen())
        return prepared;
    return putInPlace(to);
}

static bool isNothingThere(const QString &path)
{
    return isMissing(path) && !QFileInfo(path).isSymLink();
}

static void syncFoldersOf(const QStringList &paths)
{
    QStringList folders;
    for (const QString &path : paths)
        folders += QFileInfo(path).path();
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
    syncFoldersOf({target, source});
    return {};
}

// A copy that lies beside its target. Only those that came out well keep their file open.
struct PreparedCopy {
    std::unique_ptr<QSaveFile> file;
    Result result;
};

static PreparedCopy prepared(const FileCopy &copy)
{
    auto file = std::make_unique<QSaveFile>(copy.target);
    const Result result = prepareCopy(copy.source, *file);
    if (result.ok() && file->isOpen())
        beginSync(file->handle());
    else
        file.reset();
    return {std::move(file), result};
}

static void syncGroup(std::vector<PreparedCopy> &group)
{
    const auto open = std::ranges::find_if(group, [](const auto &copy) { return copy.file != nullptr; });
    if (open == group.end() || syncFileSystem(open->file->handle()))
        return;
    for (PreparedCopy &copy : group) {
        if (copy.file)
            copy.result = syncContents(*copy.file);
    }
}

static void commitGroup(std::vector<PreparedCopy> &group)
{
    QStringList targets;
    for (PreparedCopy &copy : group) {
        if (!copy.file || !copy.result.ok())
            continue;
        copy.result = commit(*copy.file);
        targets += copy.file->fileName();
    }
    syncFoldersOf(targets);
}

QList<Result> copyFiles(const QList<FileCopy> &copies)
{
    static constexpr size_t groupSize = 100; // each holds a file open; systems allow as few as 256
    QList<Result> results;
    for (auto next = copies.begin(); next != copies.end();) {
        std::vector<PreparedCopy> group;
        for (; next != copies.end() && group.size() < groupSize; ++next)
            group.push_back(prepared(*next));
        syncGroup(group);
        commitGroup(group);
        for (const PreparedCopy &copy : group)
            results += copy.result;
    }
    return results;
}

#include "files/safe_write.h"

#include "files/platform.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

using Kind = Result::Kind;

static Result openToRead(QFile &file)
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
        const qint64 got = file.read(chunk.data(), chunk.size());
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

static Result openToReplace(QSaveFile &file)
{
    const QString folder = QFileInfo(file.fileName()).path();
    if (!QDir().mkpath(folder))
        return unwritable(file, QStringLiteral("the folder %1 cannot be made").arg(folder));
    if (!file.open(QIODevice::WriteOnly))
        return unwritable(file, file.errorString());
    return {};
}

// The order is not optional: a bare commit() flushes too late, ignores a failure to do so, and renames an
// empty file over the old one.
static Result putInPlace(QSaveFile &file, qint64 expectedSize)
{
    if (!file.flush()) // one that stopped half-way leaves its reason in errno alone
        return unwritable(file, systemReason());
    if (file.size() != expectedSize)
        return unwritable(file, "not all of it could be written");
    if (!syncFile(file.handle()))
        return unwritable(file, systemReason());
    if (!file.commit())
        return unwritable(file, file.errorString());
    syncFolder(QFileInfo(file.fileName()).path());
    return {};
}

// A disk that fills up takes a part without an error; the next attempt brings the system's reason.
static Result writeAll(QSaveFile &file, const char *bytes, qint64 size)
{
    while (size > 0) {
        const qint64 written = file.write(bytes, size);
        if (written <= 0)
            return unwritable(file, file.errorString());
        bytes += written;
        size -= written;
    }
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
        if (const Result written = writeAll(file, piece.data(), piece.size()); !written.ok())
            return written;
        size += piece.size();
    }
    return putInPlace(file, size);
}

static Result copyContents(QFile &from, QSaveFile &to, qint64 &copied)
{
    static constexpr qint64 chunkSize = 1 << 20;
    QByteArray chunk(chunkSize, Qt::Uninitialized);
    while (true) {
        const qint64 got = from.read(chunk.data(), chunkSize);
        if (got < 0)
            return Result::failed(Kind::Unreadable, from.fileName(), from.errorString());
        if (got == 0)
            return {};
        if (const Result written = writeAll(to, chunk.constData(), got); !written.ok())
            return written;
        copied += got;
    }
}

static bool isSameFile(const QString &one, const QString &other)
{
    const QString canonical = QFileInfo(one).canonicalFilePath();
    return !canonical.isEmpty() && canonical == QFileInfo(other).canonicalFilePath();
}

Result copyFile(const QString &source, const QString &target)
{
    QFile from(source);
    if (const Result opened = openToRead(from); !opened.ok())
        return opened;
    if (isSameFile(source, target))
        return {};
    QSaveFile to(target);
    if (const Result opened = openToReplace(to); !opened.ok())
        return opened;
    qint64 copied = 0;
    if (const Result done = copyContents(from, to, copied); !done.ok())
        return done;
    return putInPlace(to, copied);
}

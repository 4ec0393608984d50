#include "files/replacement.h"

#include "files/data_folder.h"
#include "files/platform.h"

#include <QDir>
#include <QFileInfo>
#include <QRandomGenerator>

#include <cerrno>
#include <utility>

using Kind = Result::Kind;

static ReplacementKeeper &theKeeper()
{
    static ReplacementKeeper keeper;
    return keeper;
}

void setReplacementKeeper(ReplacementKeeper keeper)
{
    theKeeper() = std::move(keeper);
}

template <typename Function, typename... Arguments>
static void callSafely(const Function &function, Arguments... arguments)
{
    try {
        if (function)
            function(arguments...);
    } catch (...) { // a save goes on whatever becomes of the keeping
    }
}

bool putInPlace(const QString &newFile, const QString &place, const QString &path)
{
    const ReplacementKeeper &keeper = theKeeper();
    callSafely(keeper.before, path);
    const bool replaced = renameOver(newFile, place);
    const int reason = errno;
    callSafely(keeper.after, path, replaced);
    errno = reason;
    return replaced;
}

Result makeFolderOf(const QString &path)
{
    const QString folder = QFileInfo(path).path();
    if (QDir().mkpath(folder))
        return {};
    const auto reason = QStringLiteral("the folder %1 cannot be made");
    return Result::failed(Kind::Unwritable, path, reason.arg(shownPath(folder)));
}

// What a link points to, and what that points to if it is a link itself; also where nothing is there.
static QString followed(QString path)
{
    static constexpr int mostLinks = 40; // as the system
    for (int links = 0; links < mostLinks && QFileInfo(path).isSymbolicLink(); links += 1)
        path = QFileInfo(path).symLinkTarget();
    return path;
}

// One that nothing else is likely to have; if something has it, it stays as it is.
static QString ownNameBeside(const QString &path)
{
    static constexpr char letters[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789";
    QString name = path + '.';
    for (int i = 0; i < 6; i += 1)
        name += QLatin1Char(letters[QRandomGenerator::global()->bounded(int{sizeof letters - 1})]);
    return name;
}

Replacement::Replacement(const QString &path, Link link)
    : path_(path)
    , place_(link == Link::Followed ? followed(path) : path)
{
}

Replacement::~Replacement()
{
    if (isOpen())
        file_.remove();
}

QString Replacement::folder() const
{
    return QFileInfo(place_).path();
}

Result Replacement::unwritable(const QString &reason) const
{
    return Result::failed(Kind::Unwritable, path_, reason);
}

Result Replacement::open()
{
    if (isForbiddenName(QFileInfo(place_).fileName()))
        return unwritable("this system takes no file of such a name");
    if (Result made = makeFolderOf(place_); !made.ok())
        return made;
    const QFileInfo old(place_);
    const bool hasOldFile = old.exists() && !old.isSymbolicLink();
    if (hasOldFile && old.isDir())
        return unwritable("there is a folder of this name");
    if (hasOldFile && !old.isWritable())
        return unwritable("it is protected against writing");
    file_.setFileName(ownNameBeside(place_));
    if (!file_.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered))
        return unwritable(file_.errorString());
    if (hasOldFile)
        file_.setPermissions(old.permissions());
    return {};
}

// A disk that fills up takes a part first and gives the reason only for the rest.
Result Replacement::write(QByteArrayView bytes)
{
    while (!bytes.isEmpty()) {
        const qint64 written = file_.write(bytes.data(), bytes.size());
        if (written <= 0)
            return unwritable(file_.errorString());
        bytes = bytes.sliced(written);
        written_ += written;
    }
    return {};
}

void Replacement::setTime(const QDateTime &time)
{
    file_.setFileTime(time, QFileDevice::FileModificationTime);
}

Result Replacement::finish()
{
    return file_.size() == written_ ? Result{} : unwritable("not all of it could be written");
}

Result Replacement::sync()
{
    return syncFile(file_.handle()) ? Result{} : unwritable(systemReason());
}

Result Replacement::putInPlace()
{
    file_.close();
    if (::putInPlace(file_.fileName(), place_, path_))
        return {};
    const QString reason = systemReason();
    file_.remove();
    return unwritable(reason);
}

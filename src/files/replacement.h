#pragma once

#include "files/result.h"

#include <QByteArrayView>
#include <QDateTime>
#include <QFile>

#include <functional>

// The way by which every file of the program comes to its place: it is written beside it under a name of
// its own (the same with a dot and six letters more), is forced onto the disk, and takes the place of
// whatever lies there in one step.

// Takes part in every replacement, to keep what is replaced: `before` is called while the old file, if there
// is one, still stands there, `after` once it is known whether the new one took its place. The path is the
// one that the writer was given; it may be a link. Neither can fail or stop the writing; what they throw is
// dropped.
struct ReplacementKeeper {
    std::function<void(const QString &path)> before;
    std::function<void(const QString &path, bool wasReplaced)> after;
};

// Holds from now on. One without functions, as there is at the start, costs nothing.
void setReplacementKeeper(ReplacementKeeper keeper);

// One file on its way. The calls come in this order. After one that is not fine, which is Unwritable, the
// old file stands untouched, and what was written goes with the object.
class Replacement
{
public:
    // What becomes of a path that is a link: the file that it points to is replaced, or the link itself.
    enum class Link { Followed, Replaced };

    Replacement(const QString &path, Link link);
    ~Replacement();
    Q_DISABLE_COPY_MOVE(Replacement)

    Result open(); // makes the folder where it is missing
    Result write(QByteArrayView bytes);
    void setTime(const QDateTime &time); // of its last change, where the disk can bear it
    Result finish(); // all of it has arrived
    Result sync(); // and is on the disk; not needed where handle() was used to force all files there
    Result putInPlace(); // its folder is still to be synced

    bool isOpen() const { return file_.isOpen(); }
    int handle() const { return file_.handle(); }
    QString writtenPath() const { return file_.fileName(); } // where it lies until then
    QString folder() const; // where the file lies that is replaced

private:
    Result unwritable(const QString &reason) const;

    const QString path_; // as given
    const QString place_; // what is replaced
    QFile file_;
    qint64 written_ = 0;
};

// The step by which all of them end: the file `newFile`, which is on the disk as it shall be, takes the place
// of whatever lies at `place`, on the same disk. False with errno set where it cannot be done. The keeper
// is told of `path`.
bool putInPlace(const QString &newFile, const QString &place, const QString &path);

// The folder of `path` is made where it is missing, else the result is Unwritable.
Result makeFolderOf(const QString &path);

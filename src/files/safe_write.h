#pragma once

#include "files/progress.h"
#include "files/result.h"

#include <QByteArray>
#include <QDateTime>
#include <QList>

class QFile;

// Reading and replacing whole files, for everybody. After a kill, a power cut, a full disk or a refused
// write, a file that is being replaced is the old one or the new one, whole; docs/behaviour.md tells how.

// Opens an ordinary file. Missing, Unreadable or fine; a folder, a pipe or a device is Unreadable and not
// opened, since it could keep the program waiting for ever.
Result openToRead(QFile &file);

// The same, and reads it.
Result readWhole(const QString &path, QByteArray &bytes);

// Whether the file is there, can be read, and holds just these bytes.
bool holdsJust(const QString &path, QByteArrayView bytes);

// Puts `bytes` in place of whatever `path` held; if it is a link, in place of the file that it points to.
// The folder is made where it is missing. Anything but fine is Unwritable, and then the old file stands
// untouched.
Result replaceFile(const QString &path, QByteArrayView bytes);

// The same with the pieces one behind the other.
Result replaceFile(const QString &path, const QList<QByteArrayView> &pieces);

// Puts a copy of `source`, byte for byte, in place of whatever `target` held, and leaves `source` as it
// is. If `target` is a link it is replaced itself, and what it points to stays. Copying a file onto itself
// changes nothing and is fine. Missing or Unreadable speak of `source`, Unwritable of `target`, and then the
// old target stands untouched.
Result copyFile(const QString &source, const QString &target);

// Gives the file `source` the name `target`, on the same disk, whole at every moment; the folder is made
// where it is missing. Never over something: where `target` is there already it is Unwritable, and nothing
// changes. A link is moved itself. Missing where there is no `source`.
Result moveFile(const QString &source, const QString &target);

// One copy to be made: from where, to where; or what makes the bytes, where they lie in no file.
struct FileCopy {
    QString source;
    QString target;
    std::function<Result(QByteArray &bytes)> make = {};
    QDateTime time = {}; // of the last change, which the copy is to bear too; invalid: now
    bool isProven = false; // it is read back from the disk and compared before it takes its place
};

// As copyFile() for each of them, in this order, with one result each; what fails holds up none of the
// others. Many files take hardly longer than their bytes need, as the disk is waited for once for many of
// them, and no more memory or open files than a few. Once `progress` says stop, no more of them are put in
// place, and the results end with the last one that was.
QList<Result> copyFiles(const QList<FileCopy> &copies, const Progress &progress = {});

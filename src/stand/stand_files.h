#pragma once

#include "files/progress.h"
#include "files/result.h"

#include <QList>
#include <QString>

#include <filesystem>

// A file below a data folder, as it lies there.
struct ListedFile {
    QString name; // "12L.jpg", "audio/12.mp3"
    qint64 size = 0; // in bytes; -1 for what is no ordinary file, such as a link to nothing
    qint64 time = 0; // of its last change, in milliseconds since 1970

    bool operator==(const ListedFile &) const = default;
};

// All files below the data folder of the installation in `root`, in no order. Without the data folder there
// are none; Unreadable where a folder in it cannot be listed; Cancelled.
struct [[nodiscard]] FileListing {
    Result result;
    QList<ListedFile> files;
};
FileListing listFiles(const QString &root, const Progress &progress = {});

// That a folder does not tell what lies in it: Unreadable.
Result cannotBeListed(const QString &folder, const std::error_code &failure);

// One of them, below the working directory's data folder, as it is now; of size -1 where it is gone.
ListedFile fileNow(const QString &name);

// Whether two names that differ in nothing but letters' case are one file in the folder `root`. True also
// where that cannot be told, in an empty folder.
bool foldsCase(const QString &root);

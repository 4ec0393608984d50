#pragma once

#include "files/result.h"
#include "history/thinning.h"

#include <QHash>

#include <functional>
#include <optional>

// The earlier versions of the data folder's files, in a folder of their own. Keeping one may fail, and then
// there is none; it never fails or stops what is being done.
class Versions
{
public:
    // `folder` may be empty: then nothing is kept. `now` gives the time in UTC.
    explicit Versions(QString folder, std::function<QDateTime()> now = QDateTime::currentDateTimeUtc,
                      VersionLimits limits = {});

    // Around each replacement: before it the present file gets a second name among the versions, a hard link
    // where the disk allows it, else a copy; if the file was not replaced after all, that goes again.
    void keep(const QString &path);
    void settle(const QString &path, bool wasReplaced);

    // What the file of the data folder was before it was last replaced in this run: `until` is invalid where
    // there was none. Nothing where it was not replaced, or what was there could not be kept.
    std::optional<Version> lastOf(const QString &file) const;

    // Takes a file out of its place and keeps it as a version: nothing is lost by it. Refused where it could
    // not be kept; fine where there is no such file.
    Result takeAway(const QString &path);

    // Puts bytes among the versions under that name, as if they had been replaced now.
    bool keepBytes(const QString &file, QByteArrayView bytes);

    // Newest first, as they lie on the disk.
    QList<Version> all() const;
    QString pathOf(const Version &version) const { return folder_ + '/' + version.name(); }

private:
    struct Known {
        QList<Version> versions;
        qint64 data = 0; // bytes
        qint64 scores = 0;
        QDateTime thinned;
    };

    Known &known();
    Version store(const QString &file, const std::function<bool(const QString &)> &putAt);
    void add(const Version &version);
    void thin();

    const QString folder_;
    const std::function<QDateTime()> now_;
    const VersionLimits limits_;
    std::optional<Known> known_; // what lies in the folder; read once, and then kept up
    QHash<QString, Version> last_; // by file
    struct Pending {
        bool wasThere = false;
        Version kept;
    };
    QHash<QString, Pending> pending_; // by path: looked at, and not yet replaced
};

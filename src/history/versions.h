#pragma once

#include "files/result.h"
#include "history/thinning.h"

#include <QHash>

#include <array>
#include <functional>
#include <map>
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

    // For a replacement that must not lose the present file: keeps it now, so that keep() finds it done.
    // Refused where it cannot be kept; fine where there is no such file. Whatever then becomes of the
    // replacement, settle() is to be called.
    Result secure(const QString &path);

    // What the file of the data folder was before it was last replaced: `until` is invalid where there was
    // none. Nothing where it was not replaced since this was last asked for or forgotten, or what was there
    // could not be kept.
    std::optional<Version> takeLast(const QString &file);
    void forgetLast() { last_.clear(); }

    // Takes files out of their places and keeps them as versions, with one result each: nothing is lost by
    // it. Refused where one could not be kept, Unwritable where it could not go; fine where there is none.
    QList<Result> takeAway(const QStringList &paths);

    // Puts bytes among the versions under that name, as if they had been replaced now.
    bool keepBytes(const QString &file, QByteArrayView bytes);

    // Newest first, as they lie on the disk.
    QList<Version> all() const;
    QString pathOf(const Version &version) const { return folder_ + '/' + version.name(); }
    const VersionLimits &limits() const { return limits_; }

private:
    // The versions of one kind.
    struct Shelf {
        std::map<QString, qint64> bytes; // by name, the oldest first
        qint64 size = 0; // of all of them
    };
    struct Known {
        std::array<Shelf, 2> shelves; // by Version::Kind
        QDateTime thinned;
    };

    void know();
    void clearLeavings(QList<Version> &versions) const;
    Version store(const QString &file, const std::function<bool(const QString &)> &putAt);
    void add(const Version &version);
    void thin();
    void dropOldest(Shelf &shelf, qint64 limit) const;

    const QString folder_;
    const std::function<QDateTime()> now_;
    const VersionLimits limits_;
    std::optional<Known> known_; // what lies in the folder; read once an hour, and between kept up
    QHash<QString, Version> last_; // by file
    struct Pending {
        bool wasThere = false;
        Version kept;
    };
    QHash<QString, Pending> pending_; // by path: looked at, and not yet replaced
};

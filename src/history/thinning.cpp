#include "history/thinning.h"

#include <QRegularExpression>
#include <QSet>

#include <algorithm>
#include <utility>

static const char timeFormat[] = "yyyyMMdd'T'HHmmsszzz'Z'";
static constexpr int daysOfMonth = 31;
static constexpr int daysOfScores = 90;

static bool isDataFile(const QString &file)
{
    static const QSet<QString> names{"archivio.js", "generi.js", "playlist.js", "midi.js", unsavedName};
    return names.contains(file);
}

static bool isScore(const QString &file)
{
    static const QRegularExpression score("\\A(\\d{1,5}[LR]\\.jpg|m\\.jpg|audio/\\d{1,5}\\.mp3)\\z");
    return score.match(file).hasMatch();
}

bool isKept(const QString &file)
{
    return isDataFile(file) || isScore(file);
}

Version::Kind Version::kind() const
{
    return isDataFile(file) ? Kind::Data : Kind::Score;
}

QString Version::name() const
{
    return until.toUTC().toString(timeFormat) + ' ' + file.section('/', -1);
}

Version versionOf(const QString &name, qint64 size)
{
    const QString bare = name.section(' ', 1);
    const QString file = bare.endsWith(".mp3") ? "audio/" + bare : bare;
    if (!isKept(file))
        return {};
    QDateTime until = QDateTime::fromString(name.section(' ', 0, 0), timeFormat);
    until.setTimeSpec(Qt::UTC);
    return {until, file, size};
}

// The stretch of time of which only the last version of a file stays; of the last day each stands for
// itself.
using Period = std::pair<QString, qint64>;

static Period periodOf(const Version &version, const QDateTime &now)
{
    if (version.until > now.addDays(-1))
        return {version.file, version.until.toMSecsSinceEpoch()};
    const QDate day = version.until.toLocalTime().date();
    if (version.until > now.addDays(-daysOfMonth))
        return {version.file, day.toJulianDay()};
    return {version.file, -(day.year() * 12 + day.month())};
}

// Leaves the newest first in the list, as long as they fit, and returns the others.
static QList<Version> overLimit(const QList<Version> &newestFirst, qint64 limit)
{
    QList<Version> over;
    qint64 size = 0;
    for (const Version &version : newestFirst) {
        size += version.size;
        if (size > limit)
            over += version;
    }
    return over;
}

QList<Version> outlived(QList<Version> versions, const QDateTime &now, const VersionLimits &limits)
{
    std::sort(versions.begin(), versions.end(),
              [](const Version &one, const Version &other) { return one.until > other.until; });
    QList<Version> gone;
    QList<Version> data;
    QList<Version> scores;
    QSet<Period> periods;
    for (const Version &version : std::as_const(versions)) {
        if (version.kind() == Version::Kind::Score) {
            (version.until > now.addDays(-daysOfScores) ? scores : gone) += version;
            continue;
        }
        const Period period = periodOf(version, now);
        (periods.contains(period) ? gone : data) += version;
        periods += period;
    }
    return gone + overLimit(data, limits.data) + overLimit(scores, limits.scores);
}

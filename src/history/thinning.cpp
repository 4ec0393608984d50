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

// Of "20261123T101530123Z"; there may be thousands of them, and QDateTime's own way of reading takes longer
// than the disk.
static QDateTime timeOf(QStringView text)
{
    static const QString form = "########T#########Z";
    bool isOfForm = text.size() == form.size();
    for (qsizetype i = 0; isOfForm && i < form.size(); i += 1)
        isOfForm = form[i] == '#' ? text[i] >= '0' && text[i] <= '9' : text[i] == form[i];
    if (!isOfForm)
        return {};
    const auto number = [&](qsizetype from, qsizetype length) { return text.sliced(from, length).toInt(); };
    const QDate date(number(0, 4), number(4, 2), number(6, 2));
    const QTime time(number(9, 2), number(11, 2), number(13, 2), number(15, 3));
    return date.isValid() && time.isValid() ? QDateTime(date, time, Qt::UTC) : QDateTime();
}

Version versionOf(const QString &name, qint64 size)
{
    const QString bare = name.section(' ', 1);
    const QString file = bare.endsWith(".mp3") ? "audio/" + bare : bare;
    if (!isKept(file))
        return {};
    return {timeOf(QStringView(name).first(name.indexOf(' '))), file, size};
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

#pragma once

#include <QDateTime>
#include <QList>
#include <QString>

// An earlier version of a file of the data folder. Its name says all: "20261123T101530123Z 12L.jpg".
struct Version {
    // What a version is of; each kind has its own rule of how long it is kept.
    enum class Kind {
        Data, // one of the four data files, or what was typed and not saved
        Score // a page or a recording
    };

    QDateTime until; // UTC, to the millisecond: when it was replaced
    QString file; // within the data folder: "archivio.js", "12L.jpg", "audio/12.mp3"
    qint64 size = 0; // bytes

    Kind kind() const;
    // The name under which it is kept.
    QString name() const;

    bool operator==(const Version &) const = default;
};

// What was typed and not saved, and not wanted back at the next start, is kept as a version of this name.
inline constexpr char unsavedName[] = "unsaved.json";

// Reads such a name; `until` is invalid where it is none, so that what somebody else put there is left alone.
Version versionOf(const QString &name, qint64 size);

// Whether a file of the data folder is one of which versions are kept.
bool isKept(const QString &file);

// How much is kept, in bytes.
struct VersionLimits {
    qint64 data = 200'000'000;
    qint64 scores = 1'000'000'000;
};

// Which of the versions are to go: of a data file all of the last day stay, the last of each day for a
// month, and the last of each month for good; pages and recordings stay for 90 days. What is over the
// limits goes too, the oldest first. Days and months are those of the person's calendar.
QList<Version> outlived(QList<Version> versions, const QDateTime &now, const VersionLimits &limits = {});

#include "history/emptying.h"

#include "archive/Module1.h"
#include "files/data_folder.h"
#include "history/unsaved.h"
#include "history/versions.h"
#include "songs/edits.h"
#include "songs/songs_on_disk.h"
#include "text/counting.h"

#include <QFileInfo>
#include <QLocale>

static constexpr qsizetype mostNamed = 10;

static QStringList pathsOf(int record)
{
    return {pagePath(record, Page::Left), pagePath(record, Page::Right), recordingPath(record)};
}

static void clearFields(Edits &edits, const QList<int> &songs)
{
    for (const Field field : {Field::Title, Field::Author, Field::Tags, Field::Category})
        edits.set(field, songs, QStringList(songs.size(), field == Field::Category ? "0" : ""));
}

Emptied emptySongs(Edits &edits, Versions &versions, const QList<int> &songs, const ScoreStep::Doors &doors,
                   const Progress &progress)
{
    Emptied emptied;
    QStringList files;
    for (const int n : songs) {
        const qsizetype failedBefore = emptied.failures.size();
        if (!progress(static_cast<int>(emptied.songs.size()), static_cast<int>(songs.size()))) {
            emptied.wasCancelled = true;
            break;
        }
        for (const Result &result : versions.takeAway(pathsOf(n))) {
            if (!result.ok())
                emptied.failures += result;
        }
        for (const QString &path : pathsOf(n))
            files += path.sliced(dataFolder().size() + 1);
        if (emptied.failures.size() == failedBefore)
            emptied.songs += n;
    }
    const QString which = songs.size() == 1 ? QString::number(songs[0]) : counted(songs.size(), "number");
    edits.stack().beginMacro("emptying of " + which);
    clearFields(edits, emptied.songs);
    auto step = std::make_unique<ScoreStep>(edits, versions, QString(), songs, files, doors);
    if (!step->isEmpty())
        edits.stack().push(step.release());
    edits.stack().endMacro();
    return emptied;
}

static QStringList namesOf(const QList<int> &songs)
{
    QStringList names;
    for (const int n : songs)
        names += songForPeople(n, Module1.recTitle[static_cast<size_t>(n)]);
    return names;
}

// "Sunday set: 3, 5"
static QStringList playlistsWith(const QList<int> &songs, const SongsOnDisk &disk)
{
    QStringList lines;
    for (const SongsOnDisk::Playlist &playlist : disk.playlists()) {
        QStringList held;
        for (const int n : songs) {
            if (playlist.songs.contains(n))
                held += QString::number(n);
        }
        if (!held.isEmpty())
            lines += playlist.name + ": " + someOf(held, mostNamed, ", ");
    }
    return lines;
}

static qint64 sizeOfFiles(const QList<int> &songs)
{
    qint64 size = 0;
    for (const int n : songs) {
        for (const QString &path : pathsOf(n))
            size += QFileInfo(path).size();
    }
    return size;
}

QString emptyingQuestion(const QList<int> &songs, const SongsOnDisk &disk, qint64 keptBytes)
{
    const QStringList playlists = playlistsWith(songs, disk);
    QString text =
        (songs.size() == 1 ? "Do you want to empty this number?\n"
                           : "Do you want to empty these " + counted(songs.size(), "number") + "?\n")
        + someOf(namesOf(songs), mostNamed, "\n")
        + "\n\nTitle, author, tags and category go with the next Save. Pages and recordings go now and are "
          "kept under \"Earlier versions\" for 90 days. All songs keep their numbers.";
    if (sizeOfFiles(songs) > keptBytes)
        text +=
            QStringLiteral("\n\nThese are more pages and recordings than can be kept: of %1, all but the "
                           "last %2 would be lost.")
                .arg(QLocale().formattedDataSize(sizeOfFiles(songs)), QLocale().formattedDataSize(keptBytes));
    if (!playlists.isEmpty())
        text += "\n\nThese playlists hold them, and would show an empty line:\n"
            + someOf(playlists, mostNamed, "\n");
    if (!disk.failures().isEmpty())
        text += "\n\n" + disk.failures().join('\n');
    return text;
}

QString emptyingReport(const Emptied &emptied, qsizetype wanted)
{
    QStringList lines;
    for (const Result &failure : emptied.failures)
        lines += failure.text();
    if (emptied.songs.size() < wanted)
        lines +=
            counted(wanted - emptied.songs.size(), "number keeps its fields.", "numbers keep their fields.");
    if (emptied.wasCancelled)
        lines += "It was cancelled. The numbers that come after are as they were.";
    return lines.join('\n');
}

#include "songs/song_choice.h"

#include "songs/edits.h"
#include "songs/song_columns.h"
#include "text/folding.h"

#include <QHash>
#include <QSet>

#include <algorithm>
#include <functional>

QString nameOf(const SongChoice &choice)
{
    static const QString names[] = {
        "All",
        "Without left page",
        "Without right page",
        "Without recording",
        "Without category",
        "Without title",
        "Same title as another",
        "Changed and not saved",
        "In no playlist",
    };
    return choice.kind == SongChoice::OfPlaylist ? choice.playlistName : names[choice.kind];
}

QList<SongChoice> choicesOf(const SongsOnDisk &disk)
{
    QList<SongChoice> choices;
    for (int kind = SongChoice::All; kind < SongChoice::OfPlaylist; kind += 1)
        choices += SongChoice{static_cast<SongChoice::Kind>(kind)};
    for (qsizetype i = 0; i < disk.playlists().size(); i += 1)
        choices += SongChoice{SongChoice::OfPlaylist, i, disk.playlists()[i].name};
    return choices;
}

QList<int> songsOf(const SongsOnDisk::Playlist &playlist)
{
    QList<int> songs = playlist.songs;
    songs.removeIf([](int n) { return n < 1 || n > Module1.recCount; });
    return songs;
}

static QString titleOf(int n)
{
    return foldedTitle(Module1.recTitle[static_cast<size_t>(n)]);
}

// How often each title of the archive occurs; an empty one is none.
static QHash<QString, int> titleCounts()
{
    QHash<QString, int> counts;
    for (int n = 1; n <= Module1.recCount; n += 1)
        counts[titleOf(n)] += 1;
    counts.remove({});
    return counts;
}

using Condition = std::function<bool(int)>;

static Condition isIn(const QList<int> &records)
{
    return [set = QSet<int>(records.begin(), records.end())](int n) { return set.contains(n); };
}

static Condition conditionOf(SongChoice::Kind kind, const SongsOnDisk &disk, const Edits &edits)
{
    switch (kind) {
    case SongChoice::WithoutLeftPage:
        return [&](int n) { return !disk.hasLeftPage(n); };
    case SongChoice::WithoutRightPage:
        return [&](int n) { return !disk.hasRightPage(n); };
    case SongChoice::WithoutRecording:
        return [&](int n) { return !disk.hasRecording(n); };
    case SongChoice::WithoutCategory:
        return [](int n) { return categoryOf(n) == 0; };
    case SongChoice::WithoutTitle:
        return [](int n) { return titleOf(n).isEmpty(); };
    case SongChoice::SameTitle:
        return [counts = titleCounts()](int n) { return counts.value(titleOf(n)) > 1; };
    case SongChoice::Unsaved:
        return isIn(edits.unsavedRecords());
    case SongChoice::InNoPlaylist:
        return [&](int n) { return disk.playlistsOf(n) == 0; };
    default:
        return [](int) { return true; };
    }
}

static QList<int> ofPlaylist(const QList<int> &songs, const QList<int> &records)
{
    QList<int> sorted;
    for (const int n : records)
        sorted += QList<int>(songs.count(n), n);
    return sorted;
}

QList<int> chosen(const SongChoice &choice, const QList<int> &records, const SongsOnDisk &disk,
                  const Edits &edits)
{
    if (choice.kind == SongChoice::OfPlaylist)
        return ofPlaylist(songsOf(disk.playlists()[choice.playlist]), records);
    QList<int> result;
    std::copy_if(records.begin(), records.end(), std::back_inserter(result),
                 conditionOf(choice.kind, disk, edits));
    return result;
}

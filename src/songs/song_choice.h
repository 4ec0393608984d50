#pragma once

#include "songs/songs_on_disk.h"

class Edits;

// Which songs the list shows, whatever is searched.
struct SongChoice {
    enum Kind {
        All,
        WithoutLeftPage,
        WithoutRightPage,
        WithoutRecording,
        WithoutCategory,
        WithoutTitle,
        SameTitle, // as another song has
        Unsaved,
        InNoPlaylist,
        OfPlaylist
    };

    Kind kind = All;
    qsizetype playlist = 0; // the place in SongsOnDisk::playlists(), with OfPlaylist
    QString playlistName = {};

    bool operator==(const SongChoice &) const = default;
};

// All choices that there are, in their order, and what each is called.
QList<SongChoice> choicesOf(const SongsOnDisk &disk);
QString nameOf(const SongChoice &choice);

// Those of the records that are chosen, in their order; the songs of a playlist as often as it holds them.
QList<int> chosen(const SongChoice &choice, const QList<int> &records, const SongsOnDisk &disk,
                  const Edits &edits);
// The songs of the archive that a playlist holds, in its order.
QList<int> songsOf(const SongsOnDisk::Playlist &playlist);

#pragma once

#include "archive/append_songs.h"
#include "intake/coming_song.h"

#include <QMap>

// Bringing songs in, all at once, as appendSongs().

struct [[nodiscard]] BringInReport : AppendReport {
    int firstSong = 0; // its number; 0 where none came
    int count = 0;
    Result playlist; // of writing it; fine too where none was wanted
    QMap<qsizetype, QString> cannotCome; // by its place among the songs, from 0: what cannot be made, and why
};

// Refused, with the reason, where so many songs cannot be brought in: the archive must not be written, has
// no room for them, or was changed by another program.
Result checkBringIn(qsizetype count);

// Refused where the playlist cannot be made: its name is empty, taken, or cannot be written.
Result checkNewPlaylist(const QString &name);

// Appends the songs, and makes a playlist of that name of them; of none for an empty name. A song with a
// left page alone gets the empty sheet as the right one, where there is one. Refused, and nothing has
// changed, where a song cannot have its pages and its recording.
BringInReport bringIn(const QList<ComingSong> &songs, const QString &playlist, const Progress &progress = {});

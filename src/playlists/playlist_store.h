#pragma once

#include "playlists/playlist_file.h"

// What is done with stored playlists: each begins from the file as it is at that moment. If the file has
// gone, it begins from `playlists`, what was last read.

// Reads the file, which is begun where there is none. Anything but fine leaves `playlists` as they were.
Result openPlaylists(Playlists &playlists);
// Reads it again.
Result reopenPlaylists(Playlists &playlists);

// What became of a Save or a deletion. Unless it is done, the file is as it was.
struct [[nodiscard]] PlaylistChange {
    Result result; // fine also where nothing was tried, as something else is stored than was known
    bool isDone = false;
    QStringList stored = {}; // Playlists::storedUnder() the name before
    int count = 0; // how many playlists there were before
};

struct PlaylistSave {
    QString name;
    QString songs; // as the file has it: "12,3,47,#"
    QStringList known = {}; // what may be replaced: Playlists::storedUnder() the name, as a person knows it
    bool isAdded = false; // at the end, and nothing is replaced
};

// Replaces all playlists of that name, or adds one at the end. Not done if what is stored under the name is
// not what is known, unless it is added.
PlaylistChange savePlaylist(Playlists &playlists, const PlaylistSave &save);

// Deletes all playlists of that name. Not done if what is stored under the name is not what is known, unless
// there is none.
PlaylistChange deletePlaylist(Playlists &playlists, const QString &name, const QStringList &known);

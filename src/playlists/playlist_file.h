#pragma once

#include "files/data_folder.h"
#include "files/result.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <array>

// Reading and writing spartiti/playlist.js; docs/file-formats.md tells its format. Playlists are known by
// their names, compared exactly, case included; names need not be unique.

// What the file holds, in its order. Slots count from 1; slot 0 is never used.
struct Playlists {
    static constexpr int most = 999;

    // Behind the last name stands the closing token "];", in the slot playlistSlot.
    std::array<QString, most + 2> playlistName;
    std::array<QString, most + 2> playlistSongs; // as in the file: "12,3,47,#"
    int playlistSlot = 0; // the number of playlists plus 1; 0 before the first reading

    int count() const { return qMax(playlistSlot - 1, 0); }
    // The song lists stored under that name, in the file's order, of equal ones the last; empty if there is
    // no such playlist.
    QStringList storedUnder(const QString &name) const;
};

// The record numbers of a song list of the file, in order. The text behind the last comma is never looked
// at; a piece that is no number from 0 to 9,999 is passed over.
QList<int> decodeSongList(const QString &songs);

// True for the name "];", which the file cannot carry: it would be taken for the end of the file.
bool isClosingToken(const QString &name);

// Puts a file of no playlists in place.
Result createPlaylistFile();

// A file without its closing line is read as if it had one. Anything but fine leaves `playlists` as they
// were: Missing, Unreadable, TooLarge for more than 999 playlists, Damaged where the file holds something
// that writing it again would lose.
Result readPlaylistFile(Playlists &playlists, const QString &path = playlistPath());

// Rewrites the file from `playlists` with `songs` as the song list of `name`: where `name` equals `shown`,
// every playlist of that name gets it; where that matches none, a playlist is added at the end. Refused if
// there are 999 already. After anything but fine, the file and `playlists` are as they were.
Result writePlaylistFile(Playlists &playlists, const QString &name, const QString &shown,
                         const QString &songs);

// Rewrites the file from `playlists` without those of that name. After anything but fine, the file and
// `playlists` are as they were.
Result writePlaylistFileWithout(Playlists &playlists, const QString &name);

#pragma once

#include "songs/songs_on_disk.h"

// The set list of a playlist as a PDF file of A4 pages in large type: for each song its place, title, author
// and number. A song that the archive does not hold has a line all the same.
QByteArray setListPdf(const SongsOnDisk::Playlist &playlist);

// What to call the file: the playlist's name, as far as file names can have its characters.
QString setListName(const QString &playlist);

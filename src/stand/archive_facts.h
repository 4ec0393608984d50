#pragma once

#include "archive/archive_table.h"
#include "audio/categories_file.h"
#include "midi/midi_file.h"
#include "playlists/playlist_file.h"
#include "stand/finding.h"

#include <QSet>
#include <QStringList>

#include <optional>

// What a check goes by: all files of an archive, read once.
struct ArchiveFacts {
    ArchiveTable archive; // its result is not fine where the songs are not known
    CategoriesReading categories;
    Playlists playlists;
    Result playlistsRead;
    MidiTable midi;
    Result midiRead;
    Result listed; // not fine where a folder does not tell what lies in it
    // All that lies in the data folder, and behind "audio/" in that of the recordings; also what is no file.
    QSet<QString> names;
    QSet<QString> files; // those that are ordinary files

    // 0 where the songs are not known.
    int songs() const { return archive.count(); }
    bool hasSong(qint64 n) const { return n >= 1 && n <= songs(); }
};

// archivio.js of the working directory; its result may also be Missing or Unreadable.
ArchiveTable readOwnArchive();
// By number; entry 0 is never used.
QStringList titlesOf(const ArchiveTable &archive);

// Reads all files of that archive.
ArchiveFacts readFacts();

// What is wrong, each with one part of an archive.
QList<Finding> dataFileFindings(const ArchiveFacts &facts);
QList<Finding> songFindings(const ArchiveFacts &facts);
QList<Finding> playlistFindings(const ArchiveFacts &facts);
QList<Finding> midiFindings(const ArchiveFacts &facts);
QList<Finding> nameFindings(const ArchiveFacts &facts);
// The pages of all songs, by number, and the empty sheet. Names below the data folder.
QStringList pagesOf(const ArchiveFacts &facts);
// Of one of them; the only thing that has to be looked up in the file itself.
std::optional<Finding> pageFinding(const QString &name);

#include "songs/songs_on_disk.h"

#include "audio/categories_file.h"
#include "files/data_folder.h"
#include "files/safe_write.h"
#include "midi/midi_file.h"
#include "playlists/playlist_file.h"

#include <QDirIterator>

using Kind = Result::Kind;

void SongsOnDisk::read()
{
    failures_.clear();
    readFolders();
    readMidi();
    readPlaylists();
    static_cast<void>(readCategories()); // names that are missing are numbers
}

void SongsOnDisk::readFolders()
{
    left_.reset();
    right_.reset();
    recording_.reset();
    for (QDirIterator files(dataFolder(), QDir::Files); files.hasNext();) {
        files.next();
        const auto page = pageOfName(files.fileName());
        if (page && page->record <= Module1State::lastRecord)
            (page->page == Page::Left ? left_ : right_).set(index(page->record));
    }
    for (QDirIterator files(recordingsFolder(), QDir::Files); files.hasNext();) {
        files.next();
        const int record = recordOfRecording(files.fileName());
        if (record > 0 && record <= Module1State::lastRecord)
            recording_.set(index(record));
    }
    rightIsKnown_.reset();
    if (!readWhole(emptyPagePath(), emptySheet_).ok())
        rightIsKnown_.set();
}

bool SongsOnDisk::hasRightPage(int n) const
{
    if (right_[index(n)] && !rightIsKnown_[index(n)])
        right_[index(n)] = !holdsJust(pagePath(n, Page::Right), emptySheet_);
    rightIsKnown_.set(index(n));
    return right_[index(n)];
}

void SongsOnDisk::readMidi()
{
    midi_.reset();
    MidiTable table;
    const Result read = readMidiFile(table);
    if (!read.ok() && read.kind != Kind::Missing)
        failures_ += read.refusal();
    for (size_t i = 1; i <= static_cast<size_t>(table.midiBlockCount); i += 1) {
        const qint64 number = table.block[i].number;
        if (number >= 1 && number <= Module1State::lastRecord)
            midi_.set(static_cast<size_t>(number));
    }
}

void SongsOnDisk::readPlaylists()
{
    playlists_.clear();
    playlistCount_.fill(0);
    Playlists file;
    const Result read = readPlaylistFile(file);
    if (!read.ok() && read.kind != Kind::Missing)
        failures_ += read.refusal();
    for (size_t i = 1; i <= static_cast<size_t>(file.count()); i += 1) {
        playlists_ += Playlist{file.playlistName[i], decodeSongList(file.playlistSongs[i])};
        Songs held;
        for (const int n : playlists_.last().songs) {
            if (!held[index(n)])
                playlistCount_[index(n)] += 1;
            held.set(index(n));
        }
    }
}

QStringList SongsOnDisk::playlistNamesOf(int n) const
{
    QStringList names;
    for (const Playlist &playlist : playlists_) {
        if (playlist.songs.contains(n))
            names += playlist.name;
    }
    return names;
}

#pragma once

#include "archive/Module1.h"

#include <QByteArray>
#include <QList>
#include <QStringList>

#include <bitset>

// What the disk holds of each song, as it was when last read. Records count from 1.
class SongsOnDisk
{
public:
    struct Playlist {
        QString name;
        QList<int> songs; // in its order; some may be in no archive
    };

    // One listing of spartiti and one of its recordings, one reading of each other file; also fills
    // Module1.categoryName.
    void read();

    bool hasLeftPage(int n) const { return left_[index(n)]; }
    // The empty sheet is no page. Whether a file is one is found out when first asked for.
    bool hasRightPage(int n) const;
    bool hasRecording(int n) const { return recording_[index(n)]; }
    bool hasMidi(int n) const { return midi_[index(n)]; }

    // In the order of the file.
    const QList<Playlist> &playlists() const { return playlists_; }
    // How many playlists hold the song.
    int playlistsOf(int n) const { return playlistCount_[index(n)]; }
    QStringList playlistNamesOf(int n) const;

    // What could not be read, a sentence each.
    const QStringList &failures() const { return failures_; }

private:
    using Songs = std::bitset<Module1State::lastRecord + 1>;

    static constexpr size_t index(int n) { return static_cast<size_t>(n); }
    void readFolders();
    void readMidi();
    void readPlaylists();

    Songs left_;
    mutable Songs right_;
    mutable Songs rightIsKnown_; // whether a right page is the empty sheet was found out
    QByteArray emptySheet_;
    Songs recording_;
    Songs midi_;
    QList<Playlist> playlists_;
    std::array<quint16, Module1State::lastRecord + 1> playlistCount_{};
    QStringList failures_;
};

#pragma once

#include <QList>
#include <QString>

#include <array>

// The list of songs being edited. Slot k, from 1 to songCount, holds the number text of the k-th song; it
// is empty for a record that has no number (yet). Slot 0 is never used.
struct SongList {
    static constexpr int most = 1000;

    std::array<QString, most + 1> songEntry;
    int songCount = 0;

    // There must be room for one more.
    void add(const QString &number);
    // Exchanges slots k and k + 1, which must both be in use.
    void swapWithNext(int k);
    // Takes slot k out; the slots behind it move up.
    void remove(int k);
    void empty();

    // As the playlist file has it: "12,3,47,#".
    QString text() const;
};

// The record numbers of a song list of the file, in order. The text behind the last comma is never looked
// at; a piece that is no number from 0 to 9,999 is passed over.
QList<int> decodeSongList(const QString &songs);

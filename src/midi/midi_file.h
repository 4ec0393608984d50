#pragma once

#include "files/data_folder.h"
#include "files/result.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <array>
#include <vector>

// Reading and writing spartiti/midi.js; docs/file-formats.md tells its format.

// The table of all blocks: the file's bytes, and where in them each block begins. No text is made of what
// is only carried along, so that the table is hardly larger than the file.
struct MidiTable {
    static constexpr int lastBlock = 170000;
    static constexpr int channels = 16;
    static constexpr int linesPerBlock = 1 + channels;
    static constexpr QByteArrayView header{"var midi = [\r\n"};
    static constexpr QByteArrayView trailer{" ];\r\n"};

    struct Block {
        qsizetype start = 0; // the block's first byte
        qint64 number = 0; // the value of its number, so that 012 is song 12
    };

    int midiBlockCount = 0;

    // Block i counts from 1 to midiBlockCount, row k from 1 to 16. Views into the table, without quotes.
    QByteArrayView midiBlockNumber(int i) const { return line(i, 0); }
    QByteArrayView midiBlockRow(int i, int k) const { return line(i, k); }

    bool matches(int i, int midiRecord) const { return block[static_cast<size_t>(i)].number == midiRecord; }

    QByteArray bytes;
    std::vector<Block> block; // place 0 is never used; one more behind the last tells where that ends
    bool asWritten = true; // the bytes are just those that the writer gives
    bool endMissing = false; // behind the blocks comes something else than the closing line

private:
    QByteArrayView line(int i, int number) const;
};

// The texts of a song's 48 boxes, index 1 to 16; index 0 is never used.
struct MidiFields {
    using Column = std::array<QString, MidiTable::channels + 1>;

    Column midiFieldMsb;
    Column midiFieldLsb;
    Column midiFieldPc;

    bool operator==(const MidiFields &) const = default;
};

// Appends the fields of row k to what `fields` holds for it. A missing field is empty; what stands behind
// a third comma is left out.
void splitMidiRow(QByteArrayView row, int k, MidiFields &fields);

// What the song's blocks hold, and how many of them there are: 0, with all fields empty, or 1. A file made
// by hand may hold more, and then their fields are joined.
int collectMidiFields(const MidiTable &table, int midiRecord, MidiFields &fields);

// Fills the table from the file. Missing, Unreadable, TooLarge for more than 170,000 blocks, or Damaged for
// a file that a save could not carry along whole; anything but fine leaves the table as it is. A file whose
// bytes the table already holds is not gone through again.
Result readMidiFile(MidiTable &table, const QString &path = midiPath());

// The same from the bytes that the table holds.
Result readMidiBytes(MidiTable &table);

// Replaces the file with the table's blocks in their order. The song's rows are taken from `fields`, and a
// song without a block gets one behind the others. All other texts go out as they came in. Afterwards the
// table holds what was written. Unwritable, or Refused where the table is full, leaves the file
// as it is, and the table with the same texts.
Result writeMidiFile(MidiTable &table, int midiRecord, const MidiFields &fields);

// The same for several songs, which all get these fields, in one writing.
Result writeMidiFile(MidiTable &table, const QList<int> &midiRecords, const MidiFields &fields);

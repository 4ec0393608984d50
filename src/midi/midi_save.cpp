#include "midi/midi_save.h"

#include "archive/archive_operations.h"

using Kind = Result::Kind;
using Outcome = MidiSaving::Outcome;

static bool songDiffers(const MidiTable &one, const MidiTable &other, int midiRecord)
{
    if (one.bytes.isSharedWith(other.bytes))
        return false;
    MidiFields here;
    MidiFields there;
    const int blocks = collectMidiFields(one, midiRecord, here);
    return collectMidiFields(other, midiRecord, there) != blocks || here != there;
}

MidiSaving saveMidi(MidiTable &table, int midiRecord, const MidiFields &fields)
{
    if (const Result archive = checkArchive(); !archive.ok())
        return {Outcome::Refused, archive, {}};
    MidiTable onDisk = table;
    if (const Result read = readMidiFile(onDisk); !read.ok() && read.kind != Kind::Missing)
        return {Outcome::NotRead, read, {}};
    if (onDisk.endMissing && !table.endMissing)
        return {Outcome::EndMissing, {}, {}};
    if (songDiffers(onDisk, table, midiRecord))
        return {Outcome::SongChanged, {}, std::move(onDisk)};
    table = std::move(onDisk);
    const Result written = writeMidiFile(table, midiRecord, fields);
    return {written.ok() ? Outcome::Saved : Outcome::NotWritten, written, {}};
}

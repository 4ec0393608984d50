#include "midi/midi_save.h"

#include "archive/archive_operations.h"
#include "files/data_folder.h"

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

Result copyMidiSettings(int from, const QList<int> &to)
{
    const auto refused = [](const QString &reason) {
        return Result::failed(Kind::Refused, midiPath(), reason);
    };
    if (const Result archive = checkArchive(); !archive.ok())
        return archive;
    MidiTable table;
    if (const Result read = readMidiFile(table); !read.ok())
        return read.kind == Kind::Missing ? read : refused(read.refusal());
    if (table.endMissing)
        return refused("The end of spartiti/midi.js is missing. It is left as it is.");
    MidiFields fields;
    if (collectMidiFields(table, from, fields) == 0)
        return refused(QStringLiteral("Song %1 has no MIDI settings.").arg(from));
    return writeMidiFile(table, to, fields);
}

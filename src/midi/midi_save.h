#pragma once

#include "midi/midi_file.h"

// What saveMidi() did. Unless it is Saved, nothing was written.
struct [[nodiscard]] MidiSaving {
    enum class Outcome {
        Saved,
        Refused, // the archive must not be written; the result has its reason
        NotRead, // the file has become unreadable or damaged; the result tells how
        EndMissing, // the file has lost its end since the table was read: a save would make that permanent
        SongChanged, // another program has given the song other settings than the table holds
        NotWritten // the result tells why; the file is as it was
    };

    Outcome outcome = Outcome::Saved;
    Result result;
    MidiTable onDisk; // of SongChanged: saving with this table replaces those settings
};

// Puts the song's settings into the file. The table is what the file held when it was last read or written
// here, and becomes what it holds then: what another program did to other songs meanwhile is taken over. A
// file that has gone is written anew from the table.
MidiSaving saveMidi(MidiTable &table, int midiRecord, const MidiFields &fields);

// Gives these songs the settings of another one, in one writing; all other songs keep theirs. Missing,
// Unreadable, Damaged, TooLarge or Refused where the file is not as it should be, Unwritable otherwise;
// then the file is as it was.
Result copyMidiSettings(int from, const QList<int> &to);

// The MIDI settings: a save of a song without settings leaves all others as they are, and a second save
// of the same changes nothing.

#include "memory_files.h"
#include "midi/midi_file.h"

#include <QByteArrayList>

static QByteArrayList textsOf(const MidiTable &table)
{
    QByteArrayList texts;
    for (int i = 1; i <= table.midiBlockCount; i += 1) {
        texts += table.midiBlockNumber(i).toByteArray();
        for (int k = 1; k <= MidiTable::channels; k += 1)
            texts += table.midiBlockRow(i, k).toByteArray();
    }
    return texts;
}

extern "C" int LLVMFuzzerTestOneInput(const char *data, size_t size)
{
    static constexpr int newSong = 12345; // of no number that a file of few bytes is likely to hold
    memoryFile = QByteArray(data, static_cast<qsizetype>(size));
    MidiTable table;
    if (!readMidiFile(table).ok())
        return 0;
    MidiFields fields;
    const bool known = collectMidiFields(table, newSong, fields) > 0;
    const QByteArrayList texts = textsOf(table);
    require(writeMidiFile(table, newSong, fields).ok());
    MidiTable again;
    require(readMidiFile(again).ok() && again.asWritten && !again.endMissing);
    require(again.bytes == table.bytes && textsOf(again) == textsOf(table));
    if (!known)
        require(textsOf(again).first(texts.size()) == texts && again.midiBlockCount == table.midiBlockCount);
    const QByteArray written = memoryFile;
    MidiFields back;
    require(collectMidiFields(again, newSong, back) > 0 && (known || back == fields));
    require(known || (writeMidiFile(again, newSong, back).ok() && memoryFile == written));
    return 0;
}

#include "stand/archive_facts.h"

#include <QMap>

using Place = Finding::Place;

// The pieces of a playlist's songs, as the file has them, that are no songs of the archive.
static QStringList missingSongs(const QString &songs, const ArchiveFacts &facts)
{
    QStringList missing;
    QStringList pieces = songs.split(',');
    pieces.removeLast();
    for (const QString &piece : std::as_const(pieces)) {
        bool isNumber = false;
        const int n = piece.toInt(&isNumber);
        if (!isNumber || !facts.hasSong(n))
            missing += piece.trimmed().isEmpty() ? QStringLiteral("one without a number") : piece.trimmed();
    }
    missing.removeDuplicates();
    return missing;
}

static Finding ofPlaylist(const QString &what, const QString &name, const QString &meaning)
{
    return {what + ": " + name, meaning, 0, Place::Playlists};
}

QList<Finding> playlistFindings(const ArchiveFacts &facts)
{
    QList<Finding> findings;
    QMap<QString, int> counts;
    for (size_t i = 1; i <= static_cast<size_t>(facts.playlists.count()); i += 1) {
        const QString &name = facts.playlists.playlistName[i];
        const QString &songs = facts.playlists.playlistSongs[i];
        const QStringList missing = facts.archive.result.ok() ? missingSongs(songs, facts) : QStringList();
        if (!missing.isEmpty())
            findings += ofPlaylist("Playlist with songs that are not there", name,
                                   "The archive does not have: " + missing.join(", ") + '.');
        if (songs.count(',') == 0)
            findings += ofPlaylist("Playlist of no songs", name, "The stand lists it, and it leads nowhere.");
        counts[name] += 1;
        if (counts[name] == 2)
            findings += ofPlaylist("Playlists of the same name", name,
                                   "Here and on the stand they cannot be told apart.");
    }
    return findings;
}

static bool isMidiValue(const QString &text)
{
    static constexpr int most = 127;
    bool isNumber = false;
    const int value = text.trimmed().toInt(&isNumber);
    return text.isEmpty() || (isNumber && value >= 0 && value <= most);
}

// The channels of a block with a value that is none.
static QStringList badChannels(const MidiTable &midi, int block)
{
    QStringList channels;
    for (int k = 1; k <= MidiTable::channels; k += 1) {
        MidiFields fields;
        splitMidiRow(midi.midiBlockRow(block, k), k, fields);
        const auto channel = static_cast<size_t>(k);
        if (!isMidiValue(fields.midiFieldMsb[channel]) || !isMidiValue(fields.midiFieldLsb[channel])
            || !isMidiValue(fields.midiFieldPc[channel]))
            channels += QString::number(k);
    }
    return channels;
}

static QList<Finding> blockFindings(const ArchiveFacts &facts, int block, QMap<qint64, int> &counts)
{
    const qint64 number = facts.midi.block[static_cast<size_t>(block)].number;
    const bool isSong = facts.hasSong(number);
    const int song = isSong ? static_cast<int>(number) : 0;
    const Place place = isSong ? Place::Song : Place::Nowhere;
    QList<Finding> findings;
    if (!isSong && facts.archive.result.ok())
        findings += Finding{"MIDI settings for no song: " + QString::number(number),
                            "The archive has no song of this number; the next one to get it would get them."};
    if (const QStringList bad = badChannels(facts.midi, block); !bad.isEmpty())
        findings +=
            Finding{"MIDI values above 127",
                    "MIDI knows 0 to 127. Wrong are the channels: " + bad.join(", ") + '.', song, place};
    counts[number] += 1;
    if (counts[number] == 2)
        findings +=
            Finding{"MIDI settings twice for one song",
                    "Nobody can say which of them the stand takes. A \"Save\" of \"Midi device\" makes them "
                    "the same.",
                    song, place};
    return findings;
}

QList<Finding> midiFindings(const ArchiveFacts &facts)
{
    QList<Finding> findings;
    QMap<qint64, int> counts;
    for (int block = 1; block <= facts.midi.midiBlockCount; block += 1)
        findings += blockFindings(facts, block, counts);
    if (facts.midi.endMissing)
        findings +=
            Finding{"End of midi.js missing",
                    "The file may have been cut short: perhaps settings are missing behind its last ones."};
    return findings;
}

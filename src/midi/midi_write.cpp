#include "midi/midi_file.h"

#include "files/data_folder.h"
#include "files/safe_write.h"
#include "format/field.h"
#include "format/token.h"

using Kind = Result::Kind;

static void appendLine(QByteArray &bytes, QByteArrayView text)
{
    bytes += '"';
    bytes += text;
    bytes += "\",\r\n";
}

static void appendRows(QByteArray &bytes, const MidiFields &fields)
{
    for (size_t k = 1; k <= MidiTable::channels; k += 1) {
        appendField(bytes,
                    fields.midiFieldMsb[k] + ',' + fields.midiFieldLsb[k] + ',' + fields.midiFieldPc[k]);
        bytes += ",\r\n";
    }
}

static QByteArray blockOf(QByteArrayView number, const MidiFields &fields)
{
    QByteArray bytes;
    appendLine(bytes, number);
    appendRows(bytes, fields);
    return bytes;
}

// The same blocks as the writer puts them.
static Result putInWrittenForm(MidiTable &table)
{
    MidiTable written;
    written.bytes = MidiTable::header.toByteArray();
    TokenFile file{table.bytes, table.midiBlockCount > 0 ? table.block[1].start : 0};
    for (int line = 1; line <= table.midiBlockCount * MidiTable::linesPerBlock; line += 1) {
        appendLine(written.bytes, readToken(file));
        readToken(file);
    }
    written.bytes += MidiTable::trailer;
    const Result read = readMidiBytes(written);
    written.endMissing = table.endMissing;
    if (read.ok())
        table = std::move(written);
    return read;
}

// A block that goes out otherwise than it came in; one behind the last is new.
struct Change {
    size_t block = 0;
    qint64 number = 0;
    QByteArray bytes;
};

static QList<Change> changesFor(const MidiTable &table, int midiRecord, const MidiFields &fields)
{
    QList<Change> changes;
    for (int i = 1; i <= table.midiBlockCount; i += 1) {
        if (table.matches(i, midiRecord))
            changes += {static_cast<size_t>(i), midiRecord, blockOf(table.midiBlockNumber(i), fields)};
    }
    const bool midiBlockFound = !changes.isEmpty();
    if (!midiBlockFound) {
        const auto behindLast = static_cast<size_t>(table.midiBlockCount) + 1;
        changes += {behindLast, midiRecord, blockOf(QByteArray::number(midiRecord), fields)};
    }
    return changes;
}

static qsizetype endOf(const MidiTable &table, size_t block)
{
    return table.block[qMin(block + 1, table.block.size() - 1)].start;
}

static QList<QByteArrayView> piecesOf(const MidiTable &table, const QList<Change> &changes)
{
    const QByteArrayView bytes = table.bytes;
    QList<QByteArrayView> pieces;
    qsizetype done = 0;
    for (const Change &change : changes) {
        const qsizetype start = table.block[change.block].start;
        pieces += {bytes.sliced(done, start - done), change.bytes};
        done = endOf(table, change.block);
    }
    pieces += bytes.sliced(done);
    return pieces;
}

static void apply(const Change &change, MidiTable &table)
{
    const qsizetype start = table.block[change.block].start;
    const qsizetype length = endOf(table, change.block) - start;
    table.bytes.replace(start, length, change.bytes);
    table.block[change.block].number = change.number;
    if (change.block > static_cast<size_t>(table.midiBlockCount)) {
        table.midiBlockCount += 1;
        table.block.push_back({start, 0});
    }
    for (size_t i = change.block + 1; i < table.block.size(); i += 1)
        table.block[i].start += change.bytes.size() - length;
}

static Result writeChanges(MidiTable &table, const QList<Change> &changes)
{
    if (const Result written = replaceFile(midiPath(), piecesOf(table, changes)); !written.ok())
        return written;
    for (const Change &change : changes)
        apply(change, table);
    table.endMissing = false;
    return {};
}

// What has to change so that the song has these fields; refused where there is no room for it.
static Result prepare(MidiTable &table, int midiRecord, const MidiFields &fields, QList<Change> &changes)
{
    if (!table.asWritten || table.bytes.isEmpty()) {
        if (const Result put = putInWrittenForm(table); !put.ok())
            return put;
    }
    changes = changesFor(table, midiRecord, fields);
    if (changes.constLast().block > MidiTable::lastBlock)
        return Result::failed(Kind::Refused, midiPath(),
                              shownPath(midiPath()) + " has no room for one more song.");
    return {};
}

Result writeMidiFile(MidiTable &table, int midiRecord, const MidiFields &fields)
{
    QList<Change> changes;
    if (const Result prepared = prepare(table, midiRecord, fields, changes); !prepared.ok())
        return prepared;
    return writeChanges(table, changes);
}

Result writeMidiFile(MidiTable &table, const QList<int> &midiRecords, const MidiFields &fields)
{
    MidiTable changed = table;
    for (const int midiRecord : midiRecords) {
        QList<Change> changes;
        if (const Result prepared = prepare(changed, midiRecord, fields, changes); !prepared.ok())
            return prepared;
        for (const Change &change : changes)
            apply(change, changed);
    }
    if (const Result written = replaceFile(midiPath(), changed.bytes); !written.ok())
        return written;
    table = std::move(changed);
    table.endMissing = false;
    return {};
}

#include "midi/midi_file.h"

#include "archive/field.h"
#include "archive/token.h"
#include "files/code_page.h"
#include "files/data_folder.h"
#include "files/safe_write.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

using Kind = Result::Kind;

static constexpr int linesPerBlock = 1 + MidiTable::channels;
static constexpr int tokensPerBlock = 2 * linesPerBlock;

// A block's number, with or without leading zeros and blanks around it; nothing if it is none. One that is
// out of range is no song's.
static std::optional<qint64> numberIn(QByteArrayView text)
{
    const QByteArrayView digits = text.trimmed();
    qint64 number = 0;
    const auto [end, error] = std::from_chars(digits.begin(), digits.end(), number);
    if (end != digits.end() || error == std::errc::invalid_argument)
        return {};
    return error == std::errc() ? number : std::numeric_limits<qint64>::max();
}

QByteArrayView MidiTable::line(int i, int number) const
{
    TokenFile file{bytes, start[static_cast<size_t>(i)]};
    for (int dropped = 0; dropped < 2 * number; dropped += 1)
        readToken(file);
    return readToken(file);
}

bool MidiTable::matches(int i, int midiRecord) const
{
    return numberIn(midiBlockNumber(i)) == midiRecord;
}

static void appendUpToComma(QByteArrayView row, qsizetype &position, QString &field)
{
    const qsizetype first = qMin(position, row.size());
    const qsizetype comma = row.indexOf(',', first);
    const qsizetype end = comma < 0 ? row.size() : comma;
    field += fromCodePage(row.sliced(first, end - first));
    position = end + 1;
}

void splitMidiRow(QByteArrayView row, int k, MidiFields &fields)
{
    const auto channel = static_cast<size_t>(k);
    qsizetype position = 0;
    appendUpToComma(row, position, fields.midiFieldMsb[channel]);
    appendUpToComma(row, position, fields.midiFieldLsb[channel]);
    appendUpToComma(row, position, fields.midiFieldPc[channel]);
}

int collectMidiFields(const MidiTable &table, int midiRecord, MidiFields &fields)
{
    fields = {};
    int blocks = 0;
    for (int i = 1; i <= table.midiBlockCount; i += 1) {
        if (!table.matches(i, midiRecord))
            continue;
        blocks += 1;
        for (int k = 1; k <= MidiTable::channels; k += 1)
            splitMidiRow(table.midiBlockRow(i, k), k, fields);
    }
    return blocks;
}

// The counting pass: rounds to the nearest whole number, an exact half to the even neighbour.
static qsizetype blocksIn(qsizetype tokens)
{
    const auto counter = static_cast<double>(tokens - 1);
    return static_cast<qsizetype>(std::nearbyint((counter - 2) / linesPerBlock / 2));
}

static Result checkCount(qsizetype tokens, qsizetype blocks)
{
    if (blocks > MidiTable::lastBlock) {
        const auto reason = QStringLiteral("holds the settings of %1 songs, which is more than %2,");
        return Result::failed(Kind::TooLarge, midiPath(), reason.arg(blocks).arg(MidiTable::lastBlock));
    }
    if (tokens < 1 + blocks * tokensPerBlock)
        return Result::failed(Kind::Damaged, midiPath(), "is damaged");
    return {};
}

// False for a line with more on it than its text, or with a text that no line can hold: a save could not
// carry it along.
static bool readLine(TokenFile &file, MidiTable &table, QByteArrayView &text)
{
    if (readWrittenLine(file, text))
        return true;
    table.asWritten = false;
    text = readToken(file);
    return readToken(file).isEmpty() && !text.contains('"');
}

static bool readBlock(TokenFile &file, MidiTable &table)
{
    QByteArrayView text;
    if (!readLine(file, table, text) || !numberIn(text))
        return false;
    for (int k = 1; k <= MidiTable::channels; k += 1) {
        if (!readLine(file, table, text))
            return false;
    }
    return true;
}

// Behind the blocks one more line may stand, whatever it says as long as it is no field, and empty ones.
static bool readEnd(TokenFile &file, MidiTable &table)
{
    if (file.bytes.sliced(file.position).trimmed().startsWith('"'))
        return false;
    table.endMissing = readToken(file) != "];";
    while (!file.atEnd()) {
        if (!readToken(file).isEmpty())
            return false;
    }
    return true;
}

// The reading pass; false where the file is damaged.
static bool readBlocks(TokenFile &file, MidiTable &table)
{
    readToken(file);
    table.start.reserve(static_cast<size_t>(table.midiBlockCount) + 2);
    table.start = {0, file.position};
    for (int i = 1; i <= table.midiBlockCount; i += 1) {
        if (!readBlock(file, table))
            return false;
        table.start.push_back(file.position);
    }
    return readEnd(file, table);
}

Result readMidiFile(MidiTable &table)
{
    MidiTable found;
    if (const Result read = readWhole(midiPath(), found.bytes); !read.ok())
        return read;
    if (!found.bytes.isEmpty() && found.bytes == table.bytes)
        return {};

    TokenFile file{found.bytes};
    const qsizetype tokens = countTokens(file);
    const qsizetype blocks = blocksIn(tokens);
    if (const Result fits = checkCount(tokens, blocks); !fits.ok())
        return fits;
    found.midiBlockCount = static_cast<int>(blocks);
    if (!readBlocks(file, found))
        return Result::failed(Kind::Damaged, midiPath(), "is damaged");
    table = std::move(found);
    return {};
}

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

static void appendUnchanged(QByteArray &bytes, const MidiTable &table, int i)
{
    const qsizetype start = table.start[static_cast<size_t>(i)];
    const qsizetype end = table.start[static_cast<size_t>(i) + 1];
    if (table.asWritten) {
        bytes += QByteArrayView(table.bytes).sliced(start, end - start);
        return;
    }
    appendLine(bytes, table.midiBlockNumber(i));
    for (int k = 1; k <= MidiTable::channels; k += 1)
        appendLine(bytes, table.midiBlockRow(i, k));
}

// Appends the song's settings as the last block.
static void appendNewBlock(MidiTable &table, int midiRecord, const MidiFields &fields)
{
    appendLine(table.bytes, QByteArray::number(midiRecord));
    appendRows(table.bytes, fields);
    table.start.push_back(table.bytes.size());
    table.midiBlockCount += 1;
}

// The table as it is to be written.
static MidiTable withSong(const MidiTable &table, int midiRecord, const MidiFields &fields)
{
    static constexpr qsizetype roomForOneBlock = 1024;
    MidiTable next;
    next.bytes.reserve(table.bytes.size() + roomForOneBlock);
    next.bytes += "var midi = [\r\n";
    next.start.reserve(static_cast<size_t>(table.midiBlockCount) + 3);
    next.start = {0, next.bytes.size()};
    bool midiBlockFound = false;
    for (int i = 1; i <= table.midiBlockCount; i += 1) {
        if (table.matches(i, midiRecord)) {
            midiBlockFound = true;
            appendLine(next.bytes, table.midiBlockNumber(i));
            appendRows(next.bytes, fields);
        } else {
            appendUnchanged(next.bytes, table, i);
        }
        next.start.push_back(next.bytes.size());
    }
    next.midiBlockCount = table.midiBlockCount;
    if (!midiBlockFound)
        appendNewBlock(next, midiRecord, fields);
    next.bytes += " ];\r\n";
    return next;
}

Result writeMidiFile(MidiTable &table, int midiRecord, const MidiFields &fields)
{
    MidiTable next = withSong(table, midiRecord, fields);
    if (next.midiBlockCount > MidiTable::lastBlock)
        return Result::failed(Kind::Refused, midiPath(), "it has no room for one more song");
    const Result written = replaceFile(midiPath(), next.bytes);
    if (written.ok())
        table = std::move(next);
    return written;
}

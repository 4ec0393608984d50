#include "midi/midi_file.h"

#include "files/data_folder.h"
#include "files/safe_write.h"
#include "format/code_page.h"
#include "format/field.h"
#include "format/token.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

using Kind = Result::Kind;

static constexpr int linesPerBlock = 1 + MidiTable::channels;
static constexpr int tokensPerBlock = 2 * linesPerBlock;
static constexpr QByteArrayView header("var midi = [\r\n");
static constexpr QByteArrayView trailer(" ];\r\n");

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
    TokenFile file{bytes, block[static_cast<size_t>(i)].start};
    for (int dropped = 0; dropped < 2 * number; dropped += 1)
        readToken(file);
    return readToken(file);
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

static Result checkCount(qsizetype blocks)
{
    if (blocks > MidiTable::lastBlock) {
        const auto reason = QStringLiteral("it holds the settings of %1 songs instead of %2 at most");
        return Result::failed(Kind::TooLarge, midiPath(), reason.arg(blocks).arg(MidiTable::lastBlock));
    }
    return {};
}

// False, with the position unmoved, where no line is left, for a line with more on it than its text, and for
// a text that no line can hold: a save could not carry it along.
static bool readLine(TokenFile &file, MidiTable &table, QByteArrayView &text)
{
    if (readWrittenLine(file, text))
        return true;
    table.asWritten = false;
    TokenFile line = file;
    text = readToken(line);
    if (file.atEnd() || !readToken(line).isEmpty() || text.contains('"'))
        return false;
    file = line;
    return true;
}

static bool readBlock(TokenFile &file, MidiTable &table)
{
    const qsizetype start = file.position;
    QByteArrayView text;
    if (!readLine(file, table, text))
        return false;
    const std::optional<qint64> number = numberIn(text);
    if (!number) {
        file.position = start;
        return false;
    }
    table.block.push_back({start, *number});
    for (int k = 1; k <= MidiTable::channels; k += 1) {
        if (!readLine(file, table, text))
            return false;
    }
    return true;
}

// Behind the blocks one more line may stand, whatever it says as long as it is no field, and empty ones.
static bool readEnd(TokenFile &file, MidiTable &table)
{
    const QByteArrayView rest = file.bytes.sliced(file.position);
    if (rest.trimmed().startsWith('"'))
        return false;
    if (rest != trailer)
        table.asWritten = false;
    table.endMissing = readToken(file) != "];";
    TokenFile behind = file;
    return onlyEmptyTokensFollow(behind);
}

// The reading pass; false where the file is damaged, and then the position is there.
static bool readBlocks(TokenFile &file, MidiTable &table)
{
    readToken(file);
    table.asWritten = file.bytes.first(file.position) == header;
    table.block.reserve(static_cast<size_t>(table.midiBlockCount) + 2);
    table.block.emplace_back();
    for (int i = 1; i <= table.midiBlockCount; i += 1) {
        if (!readBlock(file, table))
            return false;
    }
    table.block.push_back({file.position, 0});
    return readEnd(file, table);
}

static Result damaged(const TokenFile &file)
{
    const qsizetype line = lineAt(file.bytes, file.position);
    return Result::failed(Kind::Damaged, midiPath(), QStringLiteral("it is damaged in line %1").arg(line));
}

static Result readTable(MidiTable &table)
{
    TokenFile file{table.bytes};
    const qsizetype tokens = countTokens(file);
    const qsizetype blocks = blocksIn(tokens);
    if (const Result fits = checkCount(blocks); !fits.ok())
        return fits;
    table.midiBlockCount = static_cast<int>(blocks);
    const bool isWhole = readBlocks(file, table) && tokens > blocks * tokensPerBlock;
    return isWhole ? Result{} : damaged(file);
}

Result readMidiFile(MidiTable &table, const QString &path)
{
    if (!table.bytes.isEmpty() && holdsJust(path, table.bytes))
        return {};
    MidiTable found;
    Result result = readWhole(path, found.bytes);
    if (result.ok())
        result = readTable(found);
    if (result.ok())
        table = std::move(found);
    else
        result.file = shownPath(path);
    return result;
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
    written.bytes = header.toByteArray();
    TokenFile file{table.bytes, table.midiBlockCount > 0 ? table.block[1].start : 0};
    for (int line = 1; line <= table.midiBlockCount * linesPerBlock; line += 1) {
        appendLine(written.bytes, readToken(file));
        readToken(file);
    }
    written.bytes += trailer;
    const Result read = readTable(written);
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

Result writeMidiFile(MidiTable &table, int midiRecord, const MidiFields &fields)
{
    if (!table.asWritten || table.bytes.isEmpty()) {
        if (const Result put = putInWrittenForm(table); !put.ok())
            return put;
    }
    const QList<Change> changes = changesFor(table, midiRecord, fields);
    if (changes.constLast().block > MidiTable::lastBlock)
        return Result::failed(Kind::Refused, midiPath(),
                              shownPath(midiPath()) + " has no room for one more song.");
    return writeChanges(table, changes);
}

#include "midi/midi_file.h"

#include "files/data_folder.h"
#include "files/safe_write.h"
#include "format/code_page.h"
#include "format/token.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

using Kind = Result::Kind;

static constexpr int tokensPerBlock = 2 * MidiTable::linesPerBlock;

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
    return static_cast<qsizetype>(std::nearbyint((counter - 2) / MidiTable::linesPerBlock / 2));
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
    if (rest != MidiTable::trailer)
        table.asWritten = false;
    table.endMissing = readToken(file) != "];";
    TokenFile behind = file;
    return onlyEmptyTokensFollow(behind);
}

// The reading pass; false where the file is damaged, and then the position is there.
static bool readBlocks(TokenFile &file, MidiTable &table)
{
    readToken(file);
    table.asWritten = file.bytes.first(file.position) == MidiTable::header;
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

Result readMidiBytes(MidiTable &table)
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
        result = readMidiBytes(found);
    if (result.ok())
        table = std::move(found);
    else
        result.file = shownPath(path);
    return result;
}

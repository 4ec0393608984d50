#include "archive/archive_table.h"

#include "format/token.h"

#include <algorithm>
#include <cmath>

using Kind = Result::Kind;

static constexpr qsizetype linesPerRecord = 5;
static constexpr qsizetype tokensPerRecord = 2 * linesPerRecord;

// Goes through the file once: it counts the tokens, and takes each ten of them for a record until the count
// tells how many there are.
struct ArchiveScan {
    TokenFile file;
    qsizetype tokens = 0;
    bool regular = true; // of the record at hand
};

static QByteArrayView nextToken(ArchiveScan &scan)
{
    scan.tokens += scan.file.atEnd() ? 0 : 1;
    return readToken(scan.file);
}

static QByteArrayView nextField(ArchiveScan &scan)
{
    QByteArrayView field;
    if (readWrittenLine(scan.file, field)) {
        scan.tokens += 2;
        return field;
    }
    field = nextToken(scan);
    scan.regular &= nextToken(scan).isEmpty();
    return field;
}

static ArchiveRecord nextRecord(ArchiveScan &scan)
{
    ArchiveRecord record;
    record.place = scan.file.position;
    scan.regular = true;
    record.number = nextField(scan);
    record.title = nextField(scan);
    record.author = nextField(scan);
    record.tags = nextField(scan);
    record.category = nextField(scan);
    return record;
}

// Takes more records than the file holds, since it takes its end for one, but not many more than there may
// be. Returns the number of tokens.
static qsizetype takeRecords(ArchiveTable &table, int most)
{
    ArchiveScan scan{.file = {table.bytes}};
    const size_t enough = static_cast<size_t>(most) + 4;
    table.records.reserve(std::min(enough, static_cast<size_t>(table.bytes.size() / tokensPerRecord) + 4));
    nextToken(scan);
    table.records.emplace_back();
    while (!scan.file.atEnd() && table.records.size() < enough) {
        table.records.push_back(nextRecord(scan));
        if (!scan.regular && table.irregularRecord == 0)
            table.irregularRecord = table.count();
    }
    return scan.tokens + countTokens(scan.file);
}

static qsizetype recordsIn(qsizetype tokens, CountRule::Rounding rounding)
{
    const qsizetype ofRecords = qMax<qsizetype>(tokens - 2, 0);
    if (rounding == CountRule::Rounding::Down)
        return ofRecords / tokensPerRecord;
    return std::llrint(static_cast<double>(ofRecords) / tokensPerRecord);
}

// Whether nothing but the closing line and perhaps blank lines follow.
static bool endsAsWritten(TokenFile file)
{
    return readToken(file) == "];" && onlyEmptyTokensFollow(file);
}

// Leaves the records that count.
static void cutToCount(ArchiveTable &table, qsizetype count)
{
    const size_t behind = static_cast<size_t>(count) + 1;
    const bool isEnd = behind >= table.records.size();
    const TokenFile rest{table.bytes, isEnd ? table.bytes.size() : table.records[behind].place};
    table.endMissing = !endsAsWritten(rest);
    table.records.resize(behind);
    if (table.irregularRecord > count)
        table.irregularRecord = 0;
}

static ArchiveTable failed(const QByteArray &bytes, Kind kind, const QString &path, const QString &reason)
{
    ArchiveTable table;
    table.bytes = bytes;
    table.result = Result::failed(kind, path, reason);
    return table;
}

ArchiveTable readArchive(const QByteArray &bytes, CountRule rule, const QString &path)
{
    ArchiveTable table;
    table.bytes = bytes;
    table.text = codePageReaderFor(bytes);
    const qsizetype tokens = takeRecords(table, rule.most);
    const qsizetype count = recordsIn(tokens, rule.rounding);
    if (count > rule.most) {
        const auto reason = QStringLiteral("it holds %1 titles instead of %2 at most");
        return failed(bytes, Kind::TooLarge, path, reason.arg(count).arg(rule.most));
    }
    if (tokens < 1 + count * tokensPerRecord)
        return failed(bytes, Kind::Damaged, path, "it is damaged");
    cutToCount(table, count);
    if (count == 0 && table.endMissing && rule.rounding == CountRule::Rounding::Nearest)
        return failed(bytes, Kind::Damaged, path, "it is damaged");
    return table;
}

static bool stopsViewer(QByteArrayView text)
{
    return text.contains('\\') || text.contains('\n') || text.contains('\r');
}

QList<int> unviewableRecords(const ArchiveTable &table)
{
    const qsizetype lines = linesPerRecord * table.count() + 2;
    const auto hasAsMany = [&](char lineEnd) {
        return std::count(table.bytes.begin(), table.bytes.end(), lineEnd) == lines;
    };
    if (!table.bytes.contains('\\') && hasAsMany('\n') && hasAsMany('\r'))
        return {}; // nearly always, and sooner than field by field
    QList<int> records;
    for (int n = 1; n <= table.count(); n += 1) {
        const ArchiveRecord &record = table.records[static_cast<size_t>(n)];
        if (stopsViewer(record.title) || stopsViewer(record.author) || stopsViewer(record.tags))
            records += n;
    }
    return records;
}

#include "archive/archive_file.h"

#include "files/data_folder.h"
#include "files/safe_write.h"
#include "format/code_page.h"
#include "format/field.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

using Kind = Result::Kind;

static QByteArrayView readFieldLine(TokenFile &file, bool &regular)
{
    QByteArrayView field;
    if (readWrittenLine(file, field))
        return field;
    field = readToken(file);
    regular &= readToken(file).isEmpty();
    return field;
}

ArchiveRecord readRecord(TokenFile &file)
{
    ArchiveRecord record;
    record.number = readFieldLine(file, record.regular);
    record.title = readFieldLine(file, record.regular);
    record.author = readFieldLine(file, record.regular);
    record.tags = readFieldLine(file, record.regular);
    record.category = readFieldLine(file, record.regular);
    return record;
}

// The categories are few and the records many: equal texts share their memory.
static QString sharedCategory(QByteArrayView category, CodePageReader text)
{
    static std::array<QString, 100> shared;
    size_t number = shared.size();
    const char *const end = category.data() + category.size();
    if (std::from_chars(category.data(), end, number).ptr != end || number >= shared.size())
        return text(category);
    if (shared[number] != QLatin1StringView(category))
        shared[number] = text(category);
    return shared[number];
}

static void storeRecord(size_t n, const ArchiveRecord &record, CodePageReader text)
{
    Module1.recNumber[n] = text(record.number);
    Module1.recTitle[n] = text(record.title);
    Module1.recAuthor[n] = text(record.author);
    Module1.recTags[n] = text(record.tags);
    Module1.recCategory[n] = sharedCategory(record.category, text);
}

static ArchiveReading refuseFromNowOn(const Result &result)
{
    Module1.archiveRefusal = result.refusal();
    return {.result = result};
}

static Result damaged()
{
    return Result::failed(Kind::Damaged, archivePath(), "is damaged");
}

// Rounds to the nearest whole number, an exact half to the even neighbour.
static size_t recordsIn(size_t tokens)
{
    const double records = (static_cast<double>(tokens) - 2) / tokensPerRecord;
    return static_cast<size_t>(std::max(std::nearbyint(records), 0.0));
}

static Result checkCount(size_t tokens, size_t records)
{
    if (records > Module1State::lastRecord) {
        const auto reason = QStringLiteral("holds %1 titles, which is more than %2,");
        return Result::failed(Kind::TooLarge, archivePath(),
                              reason.arg(records).arg(Module1State::lastRecord));
    }
    return tokens < 1 + records * tokensPerRecord ? damaged() : Result{};
}

bool endsAsWritten(TokenFile &file)
{
    return readToken(file) == "];" && onlyEmptyTokensFollow(file);
}

static ArchiveReading storeRecords(TokenFile &file, size_t records, CodePageReader text)
{
    ArchiveReading reading;
    readToken(file);
    for (size_t i = 1; i <= records; i += 1) {
        const ArchiveRecord record = readRecord(file);
        storeRecord(i, record, text);
        if (!record.regular && reading.irregularRecord == 0)
            reading.irregularRecord = static_cast<int>(i);
    }
    reading.endMissing = !endsAsWritten(file);
    if (records == 0 && reading.endMissing)
        return refuseFromNowOn(damaged());
    Module1.recCount = static_cast<int>(records);
    Module1.archiveChanged = false;
    return reading;
}

ArchiveReading loadArchive()
{
    QByteArray bytes;
    if (const Result read = readWhole(archivePath(), bytes); !read.ok())
        return read.kind == Kind::Missing ? ArchiveReading{.result = read} : refuseFromNowOn(read);

    TokenFile file{bytes};
    const auto tokens = static_cast<size_t>(countTokens(file));
    const size_t records = recordsIn(tokens);
    if (const Result fits = checkCount(tokens, records); !fits.ok())
        return refuseFromNowOn(fits);
    ArchiveReading reading = storeRecords(file, records, codePageReaderFor(bytes));
    Module1.archiveOnDisk = std::move(bytes);
    return reading;
}

static QStringView writtenCategory(size_t i)
{
    const QStringView category = Module1.recCategory[i];
    return category.isEmpty() ? u"0" : category;
}

// At least the size of the whole file.
static qsizetype roomFor(size_t count)
{
    static constexpr qsizetype firstAndLastLine = 32;
    static constexpr qsizetype numberQuotesAndCommas = 5 * 5 + 4;
    qsizetype size = firstAndLastLine;
    for (size_t i = 1; i <= count; i += 1) {
        size += Module1.recTitle[i].size() + Module1.recAuthor[i].size() + Module1.recTags[i].size()
            + writtenCategory(i).size() + numberQuotesAndCommas;
    }
    return size;
}

static char *putText(char *to, QByteArrayView text)
{
    return std::copy(text.begin(), text.end(), to);
}

static char *putRecord(char *to, size_t i)
{
    static constexpr int mostDigits = 4;
    *to++ = '"';
    to = putText(std::to_chars(to, to + mostDigits, i).ptr, "\",\r\n");
    to = putFieldLine(to, Module1.recTitle[i]);
    to = putFieldLine(to, Module1.recAuthor[i]);
    to = putFieldLine(to, Module1.recTags[i]);
    return putFieldLine(to, writtenCategory(i));
}

Result writeArchive(int count)
{
    if (!Module1.archiveRefusal.isEmpty())
        return Result::failed(Kind::Refused, archivePath(), Module1.archiveRefusal);

    const auto last = static_cast<size_t>(count);
    QByteArray bytes(roomFor(last), Qt::Uninitialized);
    char *to = putText(bytes.data(), "var archivio = [\r\n");
    for (size_t i = 1; i <= last; i += 1)
        to = putRecord(to, i);
    to = putText(to, " ];\r\n");
    bytes.truncate(to - bytes.data());
    Result written = replaceFile(archivePath(), bytes);
    if (written.ok())
        Module1.archiveOnDisk = std::move(bytes);
    return written;
}

bool wasArchiveReplaced()
{
    QByteArray bytes;
    return readWhole(archivePath(), bytes).ok() && bytes != Module1.archiveOnDisk;
}

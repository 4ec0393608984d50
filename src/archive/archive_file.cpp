#include "archive/archive_file.h"

#include "archive/archive_table.h"
#include "files/data_folder.h"
#include "files/safe_write.h"
#include "format/field.h"

#include <algorithm>
#include <array>
#include <charconv>

using Kind = Result::Kind;

// The categories are few and the records many: equal texts share their memory.
static QString sharedCategory(QByteArrayView category, CodePageReader text)
{
    static std::array<QString, 100> shared;
    size_t number = shared.size();
    std::from_chars(category.data(), category.data() + category.size(), number);
    if (number >= shared.size())
        return text(category);
    if (shared[number] != QLatin1StringView(category))
        shared[number] = text(category);
    return shared[number];
}

// Songs that follow each other often have the same author or tags: equal texts share their memory.
static QString sharedText(const QString &before, QByteArrayView field, CodePageReader text)
{
    return before == QLatin1StringView(field) ? before : text(field);
}

static void storeRecords(const ArchiveTable &table)
{
    for (size_t n = 1; n < table.records.size(); n += 1) {
        const ArchiveRecord &record = table.records[n];
        Module1.recNumber[n] = table.text(record.number);
        Module1.recTitle[n] = table.text(record.title);
        Module1.recAuthor[n] = sharedText(Module1.recAuthor[n - 1], record.author, table.text);
        Module1.recTags[n] = sharedText(Module1.recTags[n - 1], record.tags, table.text);
        Module1.recCategory[n] = sharedCategory(record.category, table.text);
    }
    Module1.recCount = table.count();
    Module1.archiveChanged = false;
    Module1.archiveOnDisk = table.bytes;
}

static ArchiveReading refuseFromNowOn(const Result &result)
{
    Module1.archiveRefusal = result.refusal();
    return {.result = result};
}

ArchiveReading loadArchive()
{
    QByteArray bytes;
    if (const Result read = readWhole(archivePath(), bytes); !read.ok())
        return read.kind == Kind::Missing ? ArchiveReading{.result = read} : refuseFromNowOn(read);
    const ArchiveTable table = readArchive(bytes, ownArchive);
    if (!table.result.ok())
        return refuseFromNowOn(table.result);
    storeRecords(table);
    return {.result = {},
            .irregularRecord = table.irregularRecord,
            .endMissing = table.endMissing,
            .unviewable = unviewableRecords(table)};
}

Result checkArchive()
{
    return Module1.archiveRefusal.isEmpty()
        ? Result{}
        : Result::failed(Kind::Refused, archivePath(), Module1.archiveRefusal);
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

QByteArray archiveBytes(int count)
{
    const auto last = static_cast<size_t>(count);
    QByteArray bytes(roomFor(last), Qt::Uninitialized);
    char *to = putText(bytes.data(), "var archivio = [\r\n");
    for (size_t i = 1; i <= last; i += 1)
        to = putRecord(to, i);
    to = putText(to, " ];\r\n");
    bytes.truncate(to - bytes.data());
    return bytes;
}

Result writeArchive(int count)
{
    if (const Result archive = checkArchive(); !archive.ok())
        return archive;
    QByteArray bytes = archiveBytes(count);
    Result written = replaceFile(archivePath(), bytes);
    if (written.ok())
        Module1.archiveOnDisk = std::move(bytes);
    return written;
}

bool wasArchiveReplaced()
{
    QByteArray bytes;
    return Module1.archiveRefusal.isEmpty() && readWhole(archivePath(), bytes).ok()
        && bytes != Module1.archiveOnDisk;
}

#include "archive/archive_file.h"

#include "archive/field.h"
#include "files/code_page.h"
#include "files/data_folder.h"
#include "files/safe_write.h"

#include <cmath>

using Kind = Result::Kind;

static constexpr qsizetype tokensPerRecord = 10;

static QByteArrayView readFieldLine(TokenFile &file, bool &regular)
{
    const QByteArrayView field = readToken(file);
    if (!readToken(file).isEmpty())
        regular = false;
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

static void storeRecord(size_t n, const ArchiveRecord &record)
{
    Module1.recNumber[n] = fromCodePage(record.number);
    Module1.recTitle[n] = fromCodePage(record.title);
    Module1.recAuthor[n] = fromCodePage(record.author);
    Module1.recTags[n] = fromCodePage(record.tags);
    Module1.recCategory[n] = fromCodePage(record.category);
}

static bool endsAsWritten(TokenFile &file)
{
    if (readToken(file) != "];")
        return false;
    while (!file.atEnd()) {
        if (!readToken(file).isEmpty())
            return false;
    }
    return true;
}

static ArchiveReading refuseFromNowOn(const Result &result)
{
    Module1.archiveRefusal = result.notReadText();
    return {.result = result};
}

// Rounds to the nearest whole number, an exact half to the even neighbour.
static qsizetype recordsIn(qsizetype tokens)
{
    return static_cast<qsizetype>(std::nearbyint(static_cast<double>(tokens - 2) / tokensPerRecord));
}

static Result damaged()
{
    return Result::failed(Kind::Damaged, archivePath(), "is damaged");
}

static Result checkCount(qsizetype tokens, qsizetype records)
{
    if (records > Module1State::lastRecord) {
        const auto reason = QStringLiteral("holds %1 titles, which is more than %2,");
        return Result::failed(Kind::TooLarge, archivePath(),
                              reason.arg(records).arg(Module1State::lastRecord));
    }
    if (tokens < 1 + records * tokensPerRecord)
        return damaged();
    return {};
}

ArchiveReading loadArchive()
{
    QByteArray bytes;
    if (const Result read = readWhole(archivePath(), bytes); !read.ok())
        return read.kind == Kind::Missing ? ArchiveReading{.result = read} : refuseFromNowOn(read);

    TokenFile file{bytes};
    const qsizetype tokens = countTokens(file);
    const qsizetype records = recordsIn(tokens);
    if (const Result fits = checkCount(tokens, records); !fits.ok())
        return refuseFromNowOn(fits);

    ArchiveReading reading;
    readToken(file);
    for (int i = 1; i <= records; i += 1) {
        const ArchiveRecord record = readRecord(file);
        storeRecord(static_cast<size_t>(i), record);
        if (!record.regular && reading.irregularRecord == 0)
            reading.irregularRecord = i;
    }
    reading.endMissing = !endsAsWritten(file);
    if (records == 0 && reading.endMissing)
        return refuseFromNowOn(damaged());
    Module1.recCount = static_cast<int>(records);
    Module1.archiveChanged = false;
    return reading;
}

static void appendFieldLine(QByteArray &bytes, QStringView text)
{
    appendField(bytes, text);
    bytes += ",\r\n";
}

Result writeArchive(int count)
{
    if (!Module1.archiveRefusal.isEmpty())
        return Result::failed(Kind::Refused, archivePath(), Module1.archiveRefusal);

    QByteArray bytes("var archivio = [\r\n");
    for (size_t i = 1; i <= static_cast<size_t>(count); i += 1) {
        appendFieldLine(bytes, QString::number(i));
        appendFieldLine(bytes, Module1.recTitle[i]);
        appendFieldLine(bytes, Module1.recAuthor[i]);
        appendFieldLine(bytes, Module1.recTags[i]);
        const QString &category = Module1.recCategory[i];
        appendFieldLine(bytes, category.isEmpty() ? "0" : category);
    }
    bytes += " ];\r\n";
    return replaceFile(archivePath(), bytes);
}

#include "merge/merge_source.h"

#include "archive/archive_file.h"
#include "files/data_folder.h"
#include "files/safe_write.h"
#include "format/code_page.h"

using Kind = Result::Kind;

// The whole records among so many tokens: ten each, beside the first and the last line.
static qsizetype recordsIn(qsizetype tokens)
{
    return qMax<qsizetype>(tokens - 2, 0) / tokensPerRecord;
}

static Result checkCount(const QString &path, qsizetype tokens)
{
    if (tokens == 0)
        return Result::failed(Kind::Damaged, path, "the file is empty");
    if (recordsIn(tokens) > MergeSource::lastSlot) {
        const auto reason = QStringLiteral("it holds %1 titles, and no more than %2 can be listed");
        return Result::failed(Kind::TooLarge, path, reason.arg(recordsIn(tokens)).arg(MergeSource::lastSlot));
    }
    return {};
}

static void appendRecord(MergeSource &source, const ArchiveRecord &record, CodePageReader text)
{
    source.sourceCount += 1;
    source.sourceNumber += text(record.number);
    source.sourceTitle += text(record.title);
    source.sourceAuthor += text(record.author);
    source.sourceTags += text(record.tags);
    source.sourceCategory += text(record.category);
}

static void readRecords(SourceReading &reading, TokenFile &file, qsizetype records)
{
    const CodePageReader text = codePageReaderFor(file.bytes);
    MergeSource &source = reading.source;
    for (QStringList *column : {&source.sourceNumber, &source.sourceTitle, &source.sourceAuthor,
                                &source.sourceTags, &source.sourceCategory}) {
        column->reserve(records + 1);
        column->append(QString()); // slot 0
    }
    readToken(file);
    for (int i = 1; i <= records; i += 1) {
        const ArchiveRecord record = readRecord(file);
        appendRecord(source, record, text);
        if (!record.regular && reading.irregularRecord == 0)
            reading.irregularRecord = i;
    }
    reading.endMissing = !endsAsWritten(file);
}

SourceReading readMergeSource(const QString &folder)
{
    SourceReading reading;
    reading.source.folder = folder;
    const QString path = archivePath(folder);
    QByteArray bytes;
    reading.result = readWhole(path, bytes);
    if (!reading.result.ok())
        return reading;
    TokenFile file{bytes};
    const qsizetype tokens = countTokens(file);
    reading.result = checkCount(path, tokens);
    if (reading.result.ok())
        readRecords(reading, file, recordsIn(tokens));
    return reading;
}

#include "merge/absorb.h"

#include "archive/archive_file.h"
#include "files/platform.h"
#include "files/safe_write.h"
#include "pages/page_files.h"

#include <memory>
#include <optional>

using Kind = Result::Kind;

static Result refused(const QString &reason)
{
    return Result::failed(Kind::Refused, archivePath(), reason);
}

static bool isThere(const MergeSource &source)
{
    return !isMissing(archivePath(source.folder));
}

Result checkAbsorb(const MergeSource &source, qsizetype chosenCount)
{
    if (!Module1.archiveRefusal.isEmpty())
        return refused(Module1.archiveRefusal);
    const int room = Module1State::lastRecord - Module1.recCount;
    if (chosenCount > room) {
        const auto reason = QStringLiteral("The archive has room for %1 more titles, and %2 are ticked.");
        return refused(reason.arg(room).arg(chosenCount));
    }
    if (chosenCount > 0 && !isThere(source))
        return refused(shownPath(archivePath(source.folder)) + " is no longer there.");
    return {};
}

static void appendRecord(size_t entry, const ArchiveTable &archive, int slot)
{
    const ArchiveRecord &record = archive.records[static_cast<size_t>(slot)];
    Module1.recNumber[entry] = archive.text(record.number);
    Module1.recTitle[entry] = archive.text(record.title);
    Module1.recAuthor[entry] = archive.text(record.author);
    Module1.recTags[entry] = archive.text(record.tags);
    Module1.recCategory[entry] = archive.text(record.category);
}

static Result appendRecords(const MergeSource &source, const QList<int> &chosen)
{
    const auto before = std::make_unique<Module1State>(Module1);
    auto entry = static_cast<size_t>(Module1.recCount);
    for (const int slot : chosen)
        appendRecord(entry += 1, source.archive, slot);
    const Result written = writeArchive(static_cast<int>(entry));
    if (!written.ok())
        Module1 = *before;
    return written;
}

// The number that names a song's page files in the source; a 16-bit number, blanks around it do not count.
static std::optional<int> pageNumber(QByteArrayView sourceNumber)
{
    bool isNumber = false;
    const int number = sourceNumber.trimmed().toShort(&isNumber);
    return isNumber ? std::optional(number) : std::nullopt;
}

// A page of a new song, and where it comes from.
struct NewPage {
    int record;
    Page page;
    QString source; // empty where the song's number in the source names no page files

    FileCopy copy() const { return {source, pagePath(record, page)}; }
};

static QList<NewPage> newPages(const MergeSource &source, const QList<int> &chosen)
{
    QList<NewPage> pages;
    int record = Module1.recCount;
    for (const int slot : chosen) {
        record += 1;
        const std::optional<int> number =
            pageNumber(source.archive.records[static_cast<size_t>(slot)].number);
        for (const Page page : {Page::Left, Page::Right})
            pages += {record, page, number ? pagePath(*number, page, source.folder) : QString()};
    }
    return pages;
}

// A page that lies under a new song's number from before would pass for the song's.
static void setOldPageAside(const NewPage &page, AbsorbReport &report)
{
    const PageAside aside = setAside(page.record, page.page);
    if (!aside.result.ok())
        report.notSetAside += {page.record, page.page, aside.result.reason};
    else if (!aside.newPath.isEmpty())
        report.setAside += {shownPath(page.copy().target), shownPath(aside.newPath)};
}

static void reportCopy(const NewPage &page, const Result &copied, const MergeSource &source,
                       AbsorbReport &report)
{
    if (copied.ok())
        return;
    const auto trouble = [&](const QString &reason) { report.notCopied += {page.record, page.page, reason}; };
    if (copied.kind == Kind::Unwritable)
        trouble(QStringLiteral("it could not be written (%1)").arg(copied.reason));
    else if (copied.kind == Kind::Unreadable)
        trouble(QStringLiteral("the page of the source could not be read (%1)").arg(copied.reason));
    else if (!isThere(source))
        trouble("the source was no longer there");
    setOldPageAside(page, report);
}

static void copyPages(const MergeSource &source, const QList<int> &chosen, AbsorbReport &report)
{
    QList<NewPage> pages;
    QList<FileCopy> copies;
    for (const NewPage &page : newPages(source, chosen)) {
        if (page.source.isEmpty()) {
            if (page.page == Page::Left)
                report.withoutNumber += page.record;
            setOldPageAside(page, report);
            continue;
        }
        pages += page;
        copies += page.copy();
    }
    const QList<Result> results = copyFiles(copies);
    for (qsizetype i = 0; i < pages.size(); i += 1)
        reportCopy(pages[i], results[i], source, report);
}

AbsorbReport absorb(const MergeSource &source, const QList<int> &chosen)
{
    AbsorbReport report;
    report.archive = checkAbsorb(source, chosen.size());
    if (report.archive.ok())
        report.archive = appendRecords(source, chosen);
    if (report.archive.ok())
        copyPages(source, chosen, report);
    return report;
}

#include "merge/absorb.h"

#include "archive/Module1.h"
#include "files/platform.h"

#include <utility>

using Kind = Result::Kind;

static Result refused(const QString &reason)
{
    return Result::failed(Kind::Refused, archivePath(), reason);
}

static Result checkSource(const MergeSource &source)
{
    const QString path = archivePath(source.folder);
    if (isMissing(path))
        return refused(shownPath(path) + " is no longer there.");
    if (wasChanged(source))
        return refused(shownPath(path) + " has changed since it was listed.");
    return {};
}

Result checkAbsorb(const MergeSource &source, qsizetype chosenCount)
{
    if (const Result possible = checkAppend(chosenCount); !possible.ok())
        return possible;
    return chosenCount > 0 ? checkSource(source) : Result{};
}

// The number that names a song's page files in the source; a 16-bit number, blanks around it do not count.
static std::optional<int> pageNumber(QByteArrayView sourceNumber)
{
    bool isNumber = false;
    const int number = sourceNumber.trimmed().toShort(&isNumber);
    return isNumber ? std::optional(number) : std::nullopt;
}

static NewSong songIn(const MergeSource &source, int slot)
{
    const ArchiveRecord &record = source.archive.records[static_cast<size_t>(slot)];
    const CodePageReader text = source.archive.text;
    NewSong song{
        text(record.title), text(record.author), text(record.tags), text(record.category), {}, {}, {}};
    if (const auto number = pageNumber(record.number)) {
        song.left.source = pagePath(*number, Page::Left, source.folder);
        song.right.source = pagePath(*number, Page::Right, source.folder);
    }
    return song;
}

static void translateCategory(NewSong &song, int record, const CategoryTranslation &categories,
                              AbsorbReport &report)
{
    if (!categories.isOther(song.category))
        return;
    const QString there = std::exchange(song.category, categories.here(song.category));
    if (song.category == "0")
        report.withoutCategory += {record, categories.nameThere(there)};
}

AbsorbReport absorb(const MergeSource &source, const QList<int> &chosen, const Progress &progress,
                    const std::optional<CategoryTranslation> &categories)
{
    AbsorbReport report;
    report.result = checkAbsorb(source, chosen.size());
    if (!report.result.ok())
        return report;
    QList<NewSong> songs;
    for (const int slot : chosen) {
        songs += songIn(source, slot);
        const int record = Module1.recCount + static_cast<int>(songs.size());
        if (songs.last().left.source.isEmpty())
            report.withoutNumber += record;
        if (categories)
            translateCategory(songs.last(), record, *categories, report);
    }
    static_cast<AppendReport &>(report) =
        appendSongs(songs, progress, [&](const auto &) { return checkAbsorb(source, chosen.size()); });
    report.notMade.removeIf([](const FileTrouble &trouble) { return trouble.why.kind == Kind::Missing; });
    return report;
}

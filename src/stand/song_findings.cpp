#include "stand/archive_facts.h"

#include "files/safe_write.h"
#include "pages/page_image.h"
#include "text/counting.h"
#include "text/folding.h"

#include <QHash>
#include <QMap>

using Kind = Result::Kind;
using Place = Finding::Place;
using Mend = Mending::Kind;

static Finding notRead(const Result &result, const QString &meaning)
{
    return {"Not to be read: " + result.file, result.text() + ". " + meaning};
}

static QList<Finding> archiveFindings(const ArchiveFacts &facts)
{
    const ArchiveTable &archive = facts.archive;
    if (!archive.result.ok())
        return {notRead(archive.result, "Without it the stand has no songs, and songs were not checked.")};
    QList<Finding> findings;
    if (archive.irregularRecord > 0)
        findings += Finding{"Lines that are not as they should be",
                            "From this song on, fields of archivio.js seem to stand in the wrong place.",
                            archive.irregularRecord, Place::Song};
    if (archive.endMissing)
        findings +=
            Finding{"End of archivio.js missing",
                    "The file may have been cut short: perhaps songs are missing behind its last one."};
    return findings;
}

static QList<Finding> categoriesFindings(const Result &read)
{
    if (read.kind == Kind::Missing)
        return {{"No generi.js",
                 "The stand shows no names of categories. \"Mend\" writes a usual set, which \"Categories…\" "
                 "changes.",
                 0,
                 Place::Nowhere,
                 {Mend::Categories}}};
    if (!read.ok())
        return {notRead(read, "Categories without a name are shown as numbers.")};
    return {};
}

QList<Finding> dataFileFindings(const ArchiveFacts &facts)
{
    QList<Finding> findings = archiveFindings(facts) + categoriesFindings(facts.categories.result);
    if (!facts.playlistsRead.ok() && facts.playlistsRead.kind != Kind::Missing)
        findings += notRead(facts.playlistsRead, "The stand may have no playlists.");
    if (!facts.midiRead.ok() && facts.midiRead.kind != Kind::Missing)
        findings += notRead(facts.midiRead, "The stand may have no MIDI settings.");
    if (!facts.listed.ok())
        findings += notRead(facts.listed, "What lies in it was not looked at.");
    else if (!facts.names.contains("m.jpg"))
        findings +=
            {"No empty sheet m.jpg",
             "A song without a right page gets none beside its left one. \"Mend\" makes a white sheet.",
             0,
             Place::Nowhere,
             {Mend::EmptySheet}};
    return findings;
}

static QList<Finding> numberFindings(const ArchiveFacts &facts)
{
    QList<Finding> findings;
    for (int n = 1; n <= facts.songs(); n += 1) {
        const QByteArrayView number = facts.archive.records[static_cast<size_t>(n)].number;
        if (number != QByteArray::number(n))
            findings +=
                Finding{"Number " + facts.archive.text(number) + " in place of " + QString::number(n),
                        "The stand looks for this song's pages under the wrong number. A \"Save\" of the "
                        "main window puts it right.",
                        n, Place::Song};
    }
    return findings;
}

static bool hasName(const QString &category, const CategoryTable &names)
{
    bool isNumber = false;
    const int number = category.toInt(&isNumber);
    return isNumber && number >= 1 && number <= names.known
        && !names.name[static_cast<size_t>(number)].trimmed().isEmpty();
}

// A line for each category, at its first song. Without generi.js none has a name, and that is said already.
static QList<Finding> categoryFindings(const ArchiveFacts &facts)
{
    QMap<QString, QList<int>> songs;
    for (int n = 1; n <= facts.songs() && facts.categories.result.kind != Kind::Missing; n += 1) {
        const QString category =
            facts.archive.text(facts.archive.records[static_cast<size_t>(n)].category).trimmed();
        if (!category.isEmpty() && category != "0" && !hasName(category, facts.categories.table))
            songs[category] += n;
    }
    QList<Finding> findings;
    for (auto category = songs.cbegin(); category != songs.cend(); ++category) {
        const qsizetype more = category->size() - 1;
        const QString others =
            more == 0 ? QString() : QStringLiteral(" So have %1.").arg(counted(more, "other song"));
        findings += Finding{"Category " + category.key() + " has no name",
                            "This song has a category that generi.js does not name." + others,
                            category->first(), Place::Song};
    }
    return findings;
}

static QList<Finding> scriptFindings(const ArchiveFacts &facts)
{
    QList<Finding> findings;
    for (const int n : unviewableRecords(facts.archive))
        findings +=
            Finding{"Backslash or line end in a text",
                    "The stand's page stops at it and shows no song at all. Type the text anew, and save.", n,
                    Place::Song};
    return findings;
}

// The last song may be one that is just being begun.
static int songsWithoutTitle(const ArchiveFacts &facts, const QStringList &titles)
{
    return static_cast<int>(titles.first(qMax(facts.songs() - 1, 0)).count(QString()));
}

static int songsOfSameTitle(const QStringList &titles)
{
    QHash<QString, int> counts;
    for (const QString &title : titles)
        counts[title] += 1;
    counts.remove({});
    int songs = 0;
    for (const int count : std::as_const(counts))
        songs += count > 1 ? count : 0;
    return songs;
}

static QList<Finding> titleFindings(const ArchiveFacts &facts)
{
    QStringList titles;
    for (int n = 1; n <= facts.songs(); n += 1)
        titles += foldedTitle(facts.archive.text(facts.archive.records[static_cast<size_t>(n)].title));
    QList<Finding> findings;
    if (const int without = songsWithoutTitle(facts, titles); without > 0)
        findings += Finding{counted(without, "song") + " without a title",
                            "On the stand nobody will find them by name.", 0, Place::SongsWithoutTitle};
    if (const int same = songsOfSameTitle(titles); same > 0)
        findings += Finding{counted(same, "song") + " of equal titles",
                            "On the stand they can only be told apart by their authors and numbers.", 0,
                            Place::SongsOfSameTitle};
    return findings;
}

// A right page that is the empty sheet is none.
static QList<Finding> rightPageFindings(const ArchiveFacts &facts)
{
    QList<Finding> findings;
    QByteArray emptySheet;
    const bool hasEmptySheet = readWhole(emptyPagePath(), emptySheet).ok();
    for (int n = 1; n <= facts.songs(); n += 1) {
        const QString number = QString::number(n);
        if (!facts.names.contains(number + "R.jpg") || facts.names.contains(number + "L.jpg"))
            continue;
        if (!hasEmptySheet || !holdsJust(pagePath(n, Page::Right), emptySheet))
            findings += Finding{"Right page without a left one", "The stand has nothing to show on the left.",
                                n, Place::Song};
    }
    return findings;
}

QList<Finding> songFindings(const ArchiveFacts &facts)
{
    return titleFindings(facts) + numberFindings(facts) + scriptFindings(facts) + categoryFindings(facts)
        + rightPageFindings(facts);
}

QStringList pagesOf(const ArchiveFacts &facts)
{
    QStringList pages;
    const auto take = [&](const QString &name) {
        if (facts.names.contains(name))
            pages += name;
    };
    take("m.jpg");
    for (int n = 1; n <= facts.songs(); n += 1) {
        take(QString::number(n) + "L.jpg");
        take(QString::number(n) + "R.jpg");
    }
    return pages;
}

std::optional<Finding> pageFinding(const QString &name)
{
    if (canBeShown(dataFile(name)))
        return {};
    const auto page = pageOfName(name);
    const int song = page ? page->record : 0;
    return Finding{"Page that cannot be shown: " + name,
                   "It is no picture, or one that is too large. The stand shows nothing in its place.", song,
                   song > 0 ? Place::Song : Place::Nowhere};
}

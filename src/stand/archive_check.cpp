#include "stand/archive_check.h"

#include "stand/archive_facts.h"

// Asked now and then, since a look at a page takes less time than asking.
static bool goesOn(const Progress &progress, qsizetype done, qsizetype all)
{
    static constexpr qsizetype step = 50;
    return !progress || done % step != 0 || progress(static_cast<int>(done), static_cast<int>(all));
}

static void lookAtPages(ArchiveCheck &check, const ArchiveFacts &facts, const Progress &progress)
{
    const QStringList pages = pagesOf(facts);
    for (const QString &name : pages) {
        check.wasCancelled = !goesOn(progress, check.pages, pages.size());
        if (check.wasCancelled)
            return;
        if (const auto finding = pageFinding(name))
            check.findings += *finding;
        check.pages += 1;
    }
}

ArchiveCheck checkWholeArchive(const Progress &progress)
{
    const ArchiveFacts facts = readFacts();
    ArchiveCheck check;
    check.titles = titlesOf(facts.archive);
    check.findings = dataFileFindings(facts) + songFindings(facts);
    lookAtPages(check, facts, progress);
    check.findings += playlistFindings(facts) + midiFindings(facts) + nameFindings(facts);
    return check;
}

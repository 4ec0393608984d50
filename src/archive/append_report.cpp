#include "archive/append_songs.h"

static QStringList linesOf(const QList<FileTrouble> &troubles, const QString &words)
{
    QStringList lines;
    for (const FileTrouble &trouble : troubles)
        lines += trouble.path + ": " + words.arg(trouble.why.file, trouble.why.reason);
    return lines;
}

static QStringList linesOf(const QList<OldPage> &pages)
{
    QStringList lines;
    for (const OldPage &page : pages)
        lines += page.path + " is now " + page.newPath;
    return lines;
}

QStringList troublesOf(const AppendReport &report)
{
    const std::pair<const char *, QStringList> paragraphs[] = {
        {"These files of the new songs did not come:",
         linesOf(report.notMade, "%1 could not be read (%2)")
             + linesOf(report.notPlaced, "%1 could not be put there (%2)")},
        {"These pages lay there from before under the number of a new song. They do not belong to it and "
         "were given another name:",
         linesOf(report.setAside)},
        {"These pages lie there from before under the number of a new song, do not belong to it and could "
         "not be given another name:",
         linesOf(report.notSetAside, "%2")},
    };
    QStringList troubles;
    for (const auto &[heading, lines] : paragraphs) {
        if (!lines.isEmpty())
            troubles += heading + ('\n' + lines.join('\n'));
    }
    return troubles;
}

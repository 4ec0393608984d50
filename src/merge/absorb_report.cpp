#include "merge/absorb.h"

// A box has to fit on the screen.
static constexpr qsizetype mostLines = 12;

static QString nameOf(const PageTrouble &trouble)
{
    return shownPath(pagePath(trouble.record, trouble.page));
}

static QString range(const QString &first, const QString &last)
{
    return first == last ? first : first + " to " + last;
}

static bool follows(const PageTrouble &next, const PageTrouble &previous)
{
    const auto place = [](const PageTrouble &trouble) {
        return 2 * trouble.record + (trouble.page == Page::Right ? 1 : 0);
    };
    return place(next) == place(previous) + 1 && next.reason == previous.reason;
}

// Pages in an unbroken row that failed for one reason take one line together.
static QStringList linesOf(const QList<PageTrouble> &troubles)
{
    QStringList lines;
    for (qsizetype i = 0; i < troubles.size(); i += 1) {
        const qsizetype first = i;
        while (i + 1 < troubles.size() && follows(troubles[i + 1], troubles[i]))
            i += 1;
        lines += range(nameOf(troubles[first]), nameOf(troubles[i])) + ": " + troubles[i].reason;
    }
    return lines;
}

static QStringList linesOf(const QList<OldPage> &pages)
{
    QStringList lines;
    for (const OldPage &page : pages)
        lines += page.path + " is now " + page.newPath;
    return lines;
}

static QStringList linesOf(const QList<int> &records)
{
    QStringList lines;
    for (qsizetype i = 0; i < records.size(); i += 1) {
        const qsizetype first = i;
        while (i + 1 < records.size() && records[i + 1] == records[i] + 1)
            i += 1;
        lines += range(QString::number(records[first]), QString::number(records[i]));
    }
    return lines;
}

static QString section(const QString &heading, QStringList lines)
{
    if (lines.isEmpty())
        return {};
    if (lines.size() > mostLines) {
        const qsizetype left = lines.size() - mostLines + 1;
        lines = lines.first(mostLines - 1) + QStringList(QStringLiteral("and %1 more").arg(left));
    }
    return heading + '\n' + lines.join('\n');
}

QString troubleText(const AbsorbReport &report)
{
    QStringList sections = {
        section("These pages of the new songs were not copied:", linesOf(report.notCopied)),
        section("These songs came without pages, as their number in the other archive cannot name any pages:",
                linesOf(report.withoutNumber)),
        section("These pages lay there from before under the number of a new song. They do not belong to "
                "it and were given another name:",
                linesOf(report.setAside)),
        section("These pages lie there from before under the number of a new song, do not belong to it "
                "and could not be given another name:",
                linesOf(report.notSetAside)),
    };
    sections.removeAll(QString());
    return sections.join("\n\n");
}

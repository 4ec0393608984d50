#include "merge/absorb.h"

#include "archive/Module1.h"

static QString songsWithoutNumber(const QList<int> &records)
{
    QStringList lines;
    for (const int record : records)
        lines += QString::number(record) + ' ' + Module1.recTitle[static_cast<size_t>(record)];
    return "These songs came without pages, as their number in the other archive cannot name any pages:\n"
        + lines.join('\n');
}

QString troubleText(const AbsorbReport &report)
{
    QStringList troubles = troublesOf(report);
    if (!report.withoutNumber.isEmpty())
        troubles += songsWithoutNumber(report.withoutNumber);
    return troubles.join("\n\n");
}

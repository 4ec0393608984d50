#include "merge/absorb.h"

#include "archive/Module1.h"

static QString lineOf(int record)
{
    return QString::number(record) + ' ' + Module1.recTitle[static_cast<size_t>(record)];
}

QString troubleText(const AbsorbReport &report)
{
    QStringList troubles = troublesOf(report);
    QStringList lines;
    for (const int record : report.withoutNumber)
        lines += lineOf(record);
    if (!lines.isEmpty())
        troubles +=
            "These songs came without pages, as their number in the other archive cannot name any pages:\n"
            + lines.join('\n');
    lines.clear();
    for (const auto &[record, category] : report.withoutCategory)
        lines += lineOf(record) + ": " + category;
    if (!lines.isEmpty())
        troubles +=
            "These songs came without a category, as none here has the name of theirs:\n" + lines.join('\n');
    return troubles.join("\n\n");
}

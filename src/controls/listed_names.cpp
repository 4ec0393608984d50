#include "controls/listed_names.h"

#include <QCollator>

#include <algorithm>
#include <utility>
#include <vector>

static QCollator order()
{
    const QLocale system = QLocale::system().collation();
    // The C locale knows no order but that of the character codes.
    QCollator collator(system.language() == QLocale::C ? QLocale(QLocale::English) : system);
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    collator.setNumericMode(true);
    return collator;
}

QStringList listedNames(const QString &folder, QDir::Filters kinds, const QString &pattern)
{
    const QCollator collator = order();
    std::vector<std::pair<QCollatorSortKey, QString>> keyed;
    for (const QString &name : QDir(folder).entryList({pattern}, kinds, QDir::NoSort))
        keyed.emplace_back(collator.sortKey(name), name);
    std::sort(keyed.begin(), keyed.end(), [](const auto &one, const auto &other) {
        const int difference = one.first.compare(other.first);
        return difference != 0 ? difference < 0 : one.second < other.second;
    });

    QStringList names;
    names.reserve(static_cast<qsizetype>(keyed.size()));
    for (auto &[key, name] : keyed)
        names += std::move(name);
    return names;
}

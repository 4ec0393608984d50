#include "playlists/title_order.h"

#include <QCollator>

#include <algorithm>
#include <vector>

// Where no language is set, Qt would compare code points.
static QLocale userLanguage()
{
    const QLocale user;
    return user.language() == QLocale::C ? QLocale(QLocale::English) : user;
}

QStringList alphabetical(const QStringList &titles)
{
    QCollator collator(userLanguage());
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    struct Entry {
        QCollatorSortKey key;
        qsizetype place;
    };
    std::vector<Entry> entries;
    entries.reserve(static_cast<size_t>(titles.size()));
    for (qsizetype i = 0; i < titles.size(); i += 1)
        entries.push_back({collator.sortKey(titles[i]), i});
    std::stable_sort(entries.begin(), entries.end(),
                     [](const Entry &one, const Entry &other) { return one.key < other.key; });
    QStringList sorted;
    sorted.reserve(titles.size());
    for (const Entry &entry : entries)
        sorted += titles[entry.place];
    return sorted;
}

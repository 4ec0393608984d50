#include "text/alphabetical.h"

#include <QLocale>

#include <algorithm>
#include <utility>
#include <vector>

QCollator dictionaryOrder()
{
    const QLocale user = QLocale::system().collation();
    // The C locale knows no order but that of the character codes.
    QCollator collator(user.language() == QLocale::C ? QLocale(QLocale::English) : user);
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    collator.setNumericMode(true);
    return collator;
}

QStringList alphabetical(const QStringList &texts)
{
    const QCollator collator = dictionaryOrder();
    std::vector<std::pair<QCollatorSortKey, QString>> keyed;
    keyed.reserve(static_cast<size_t>(texts.size()));
    for (const QString &text : texts)
        keyed.emplace_back(collator.sortKey(text), text);
    std::sort(keyed.begin(), keyed.end(), [](const auto &one, const auto &other) {
        const int difference = one.first.compare(other.first);
        return difference != 0 ? difference < 0 : one.second < other.second;
    });

    QStringList sorted;
    sorted.reserve(texts.size());
    for (auto &[key, text] : keyed)
        sorted += std::move(text);
    return sorted;
}

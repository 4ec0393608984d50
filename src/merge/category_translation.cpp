#include "merge/category_translation.h"

#include "text/folding.h"

#include <algorithm>

static CategoryNames folded(const CategoryNames &names)
{
    CategoryNames keys;
    for (size_t k = 1; k <= categoryCount; k += 1)
        keys[k] = foldedTitle(names[k]);
    return keys;
}

// The same number if it has that name, else the first one that has it.
static int numberOf(const QString &key, size_t same, const CategoryNames &keys)
{
    if (key.isEmpty() || keys[same] == key)
        return static_cast<int>(same);
    const auto found = std::find(keys.begin() + 1, keys.end(), key);
    return found == keys.end() ? 0 : static_cast<int>(found - keys.begin());
}

std::optional<CategoryTranslation> CategoryTranslation::from(const QString &otherRoot)
{
    const CategoriesReading own = readCategoriesOf(".");
    const CategoriesReading other = readCategoriesOf(otherRoot);
    if (!own.result.ok() || !other.result.ok())
        return {};
    CategoryTranslation translation;
    translation.there_ = other.table.name;
    const CategoryNames keysHere = folded(own.table.name), keysThere = folded(other.table.name);
    for (size_t k = 1; k <= categoryCount; k += 1)
        translation.here_[k] = numberOf(keysThere[k], k, keysHere);
    return translation;
}

// 0 where it is none.
static size_t numberIn(const QString &category)
{
    const int number = category.toInt();
    return number >= 1 && number <= categoryCount ? static_cast<size_t>(number) : 0;
}

bool CategoryTranslation::isOther(const QString &category) const
{
    const size_t number = numberIn(category);
    return static_cast<size_t>(here_[number]) != number;
}

QString CategoryTranslation::here(const QString &category) const
{
    return isOther(category) ? QString::number(here_[numberIn(category)]) : category;
}

QString CategoryTranslation::nameThere(const QString &category) const
{
    return there_[numberIn(category)];
}

#pragma once

#include "audio/categories_file.h"

#include <optional>

// The categories of another installation under the numbers that their names have here. Names are equal
// without regard to case, accents and blanks around them.
class CategoryTranslation
{
public:
    // None where one of the two generi.js is missing or is not as it should be.
    static std::optional<CategoryTranslation> from(const QString &otherRoot);

    // Whether the number has another name here. One that has no name there means the same everywhere.
    bool isOther(const QString &category) const;
    // The number of the same name here; "0" where no category is called so.
    QString here(const QString &category) const;
    QString nameThere(const QString &category) const;

private:
    CategoryNames there_;
    std::array<int, categoryCount + 1> here_ = {}; // for each number there
};

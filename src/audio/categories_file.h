#pragma once

#include "files/result.h"

#include <QByteArrayView>
#include <QString>

#include <array>

// Reading spartiti/generi.js, the names of the categories; docs/file-formats.md tells its format.

// How many categories a song can be put into; category 0 is none.
inline constexpr int categoryCount = 33;

// The names that a file holds.
struct CategoryNames {
    std::array<QString, categoryCount + 1> name; // 1 to 33; the file's up to `known`, then their numbers
    int known = 0;
    qsizetype badLine = 0; // the line, from 1, because of which no more are known; 0 if all are
    bool endsThere = false; // that line is the closing one, or the file has ended: it is just too short
};

// Takes the names out of the bytes of any generi.js. A line that holds more or less than one name between
// double quotes and the comma behind it would give the next name to a wrong category; but for the head,
// and what stands behind the last name.
CategoryNames categoriesIn(QByteArrayView bytes);

// The same from the file of the installation in the folder `root`. Where the result is not fine it tells
// why not all names are known: Missing, Unreadable, or Damaged with the line.
struct [[nodiscard]] CategoriesReading {
    Result result;
    CategoryNames names;
};
CategoriesReading readCategoriesOf(const QString &root);

// Fills entries 1 to 33 of Module1.categoryName from the archive's own file.
Result readCategories();

#pragma once

#include "files/result.h"

#include <QByteArray>
#include <QString>

#include <array>

// Reading spartiti/generi.js, the names of the categories; docs/file-formats.md tells its format.

// How many categories a song can be put into; category 0 is none.
inline constexpr int categoryCount = 33;

// The names 1 to 33; entry 0 is never used.
using CategoryNames = std::array<QString, categoryCount + 1>;

// What the bytes of a generi.js hold.
struct CategoryTable {
    CategoryNames name; // the file's up to `known`, behind them their numbers
    int known = 0;
    std::array<qsizetype, categoryCount + 1> place = {}; // of each known name's first byte
    qsizetype end = 0; // the first byte behind the known names and their lines
    qsizetype badLine = 0; // the line, from 1, because of which no more are known; 0 if all are
    bool isShort = false; // that line is the closing one, or the file's end: it is as it should be so far
};

// Takes the names out of the bytes of any generi.js. A line that holds more or less than one name between
// double quotes and the comma behind it would give the next name to a wrong category; but for the head,
// and what stands behind the last name.
CategoryTable categoriesIn(QByteArrayView bytes);

// The same from the file of the installation in the folder `root`. Where the result is not fine it tells
// why not all names are known: Missing, Unreadable, or Damaged with the line.
struct [[nodiscard]] CategoriesReading {
    Result result;
    QByteArray bytes;
    CategoryTable table;
};
CategoriesReading readCategoriesOf(const QString &root);

// Fills entries 1 to 33 of Module1.categoryName from the archive's own file.
Result readCategories();

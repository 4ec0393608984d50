#pragma once

#include "files/result.h"

// How many categories a song can be put into; category 0 is none.
inline constexpr int categoryCount = 33;

// Fills entries 1 to 33 of Module1.categoryName from spartiti/generi.js, which nothing ever writes. A name
// that the file does not hold becomes the category's number; anything but fine tells why.
Result readCategories();

#pragma once

#include <QCollator>
#include <QStringList>

// The one order in which lists of titles, names and files stand: that of a dictionary of the user's
// language, as the system's sorting order says. Case does not count, letters with accents stand beside
// their base letters, and numbers within a text count as numbers: "page 9" before "page 10".
QCollator dictionaryOrder();

// The texts in that order; those that are equal in it follow each other by their character codes.
QStringList alphabetical(const QStringList &texts);

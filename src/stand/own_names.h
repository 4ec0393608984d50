#pragma once

#include <QString>

// Which names below the data folder are the archive's own. Names in the folder of recordings stand behind
// "audio/".

// True for what the program reads or writes: data files, pages, recordings and their
// folder, the empty sheet and the export.
bool isOwnName(const QString &name);

// The number in an own name of a page or a recording; 0 in any other.
int songOfName(const QString &name);

// The own name that differs from this one in nothing but letters' case and zeros in front of the number;
// empty if there is none, or it is one itself.
QString rightNameOf(const QString &name);

// True for what a broken write may have left: an own name, with a dot and six letters behind it that no
// person would have chosen.
bool isLeftOver(const QString &name);

// True for a page that once had to make room under its number.
bool isOldPage(const QString &name);

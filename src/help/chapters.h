#pragma once

#include <QString>

// The anchor of a heading, as the pages that show docs/manual.md in a browser make it: small letters,
// hyphens for blanks, no punctuation.
QString anchorOf(const QString &heading);

// The anchor of the chapter of docs/manual.md about the window of that objectName; empty, which is the
// beginning, where none is.
QString chapterOf(const QString &window);

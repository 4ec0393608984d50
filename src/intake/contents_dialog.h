#pragma once

#include "intake/contents.h"

#include <optional>

class QWidget;

// Asks for the table of contents of a book of so many pages, tells what is wrong in it, and gives its songs;
// nothing where the person thinks better of it, or it holds none.
std::optional<QList<ContentsSong>> askForContents(QWidget *parent, const QString &book, int pagesOfBook);

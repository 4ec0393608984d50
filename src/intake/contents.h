#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

// The table of contents of a book of songs, as a spreadsheet saves it: a line for each song with its title,
// its first page, and its author where there is a third column.

struct ContentsSong {
    QString title;
    QString author;
    int firstPage = 0; // of the file, from 1
    int lastPage = 0;

    bool operator==(const ContentsSong &) const = default;
};

struct Contents {
    QList<ContentsSong> songs; // in the order of their pages
    QStringList troubles; // "Line 3: …", for people; those songs are left out
};

// Columns stand between commas, semicolons or tabs, quoted as spreadsheets do it; the text is in UTF-8, in
// UTF-16 with its byte-order mark, or in the code page. A first line whose second column is no number is a
// heading, empty lines do not count. `offset` is added to every page. A song goes on to the page before the
// next one's, the last to the end of the book; of two that begin on one page both have it.
Contents contentsOf(const QByteArray &csv, int offset, int pagesOfBook);

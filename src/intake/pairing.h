#pragma once

#include <QStringList>

// Which files of a folder make a song, as their names say.

// What a file may become, told by the ending of its name.
enum class FileKind { Other, Picture, Pdf, Recording };
FileKind kindOfFile(QStringView name);

struct NamedSong {
    QString name; // what its files' names have in common, with a number from 2 on for further pages
    QStringList pages; // one or two pictures, or one PDF, or none
    QString recording; // or empty

    bool operator==(const NamedSong &) const = default;
};

// The songs of one folder, in the natural order of their names; names of other kinds are passed over. Files
// belong together if they have the same name before a page mark: those of the sides, or numbers or letters
// that begin at 1 or a and run on, to 12 at most. Case, and what separates words, does not count. What does
// not fit together is a song of its own, so that a person sees it. A recording joins the first song of its
// name. A song of more than two pages goes on as "Name (2)".
QList<NamedSong> pairByName(const QStringList &names);

// The same, but so many pictures, 1 or 2, in the order of their names make a song, which is called by the
// first.
QList<NamedSong> pairInOrder(const QStringList &names, int pagesOfSong);

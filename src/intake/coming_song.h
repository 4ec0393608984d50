#pragma once

#include "intake/song_name.h"

#include <QList>

// A page on its way into the archive: a file, or a page of a PDF, and what is to be done to it.
struct ComingPage {
    enum Part { Whole, LeftHalf, RightHalf };

    QString file; // empty: there is no such page
    int pdfPage = 0; // from 1; 0 where the file is a picture
    int dpi = 0; // of a PDF's page, dots per inch
    int turns = 0; // quarters clockwise
    Part part = Whole; // of what has been turned
    int turnsOfPart = 0; // quarters by which the half is turned

    bool exists() const { return !file.isEmpty(); }
    // Nothing is to be done to it.
    bool isAsItWas() const { return turns == 0 && part == Whole && turnsOfPart == 0; }
    bool operator==(const ComingPage &) const = default;
};

// A song that may be brought in.
struct ComingSong {
    static constexpr int unlooked = -1;

    bool isTicked = true;
    QString name; // what its files are called, see songNameOf()
    ComingPage left;
    ComingPage right;
    QString recording; // empty: none
    QString title;
    QString author;
    QString tags;
    int category = 0; // 1 to 33, 0 for none
    QString note; // what a person should know of it
    int known = 0; // the song of the archive that seems to be the same; 0: none
    int knownByPage = unlooked; // the one that has just the same picture; 0: none
    bool isNamed = false; // its title or author was typed, and no longer comes from the name

    bool operator==(const ComingSong &) const = default;

    // Its pages that there are, in order.
    QList<ComingPage> pages() const
    {
        QList<ComingPage> pages{left, right};
        pages.removeIf([](const ComingPage &page) { return !page.exists(); });
        return pages;
    }
    // Its title and author from its name, unless they were typed.
    void readName(NamesAre namesAre, bool leaveOutNumbers)
    {
        if (isNamed)
            return;
        const SongName read = songNameOf(name, namesAre, leaveOutNumbers);
        title = read.title;
        author = read.author;
    }
    void addNote(const QString &words)
    {
        if (!note.contains(words))
            note += (note.isEmpty() ? QString() : QStringLiteral("; ")) + words;
    }
};

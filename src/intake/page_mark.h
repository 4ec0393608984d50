#pragma once

#include <QString>

#include <optional>

// What the end of a file's name says about which page of a song it is: "Menuet-L", "Menuet (2)",
// "Menuet p1", "Menuet a".

struct PageMark {
    enum Kind { Side, Number, Letter };

    QString base; // what stands before it
    Kind kind = Side;
    int place = 0; // from 1; of a side 1 is left, 2 is right
    // It is no part of a title, as the "2" of "Waltz 2" may be: a file of the same base without a mark is the
    // page before.
    bool isPlain = false;
};

// Of a file's name without its ending. None also where what stands there counts works and not pages ("Op. 1",
// "Prelude no. 2", "Sonata in a"), or counts what came out of a scanner ("IMG_0013", "Numérisé 2").
std::optional<PageMark> pageMarkOf(const QString &stem);

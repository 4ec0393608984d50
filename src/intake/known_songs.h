#pragma once

#include "intake/coming_song.h"

#include <QHash>
#include <QStringList>

// What is in the archive already.
class KnownSongs
{
public:
    // As Module1 and the disk are now; the pages are not looked at before they are needed.
    KnownSongs();

    // "in the archive as no. 12", by the title, or by a page that is just the same picture; empty if it is
    // not.
    QString noteFor(const ComingSong &song);

private:
    int songOfPage(const QString &file);
    void listPages();

    QHash<QString, int> byTitle_; // folded, the first song of that title
    QHash<qint64, QStringList> pagesOfSize_;
    bool arePagesListed_ = false;
};

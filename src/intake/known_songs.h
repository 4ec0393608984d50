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

    // Finds the song in the archive, by its title, or by a page that is just the same picture. What is newly
    // known is not ticked; what turns out to be new after all is ticked again.
    void look(ComingSong &song);

private:
    int songOfPage(const QString &file);
    void listPages();

    QHash<QString, int> byTitle_; // folded, the first song of that title
    QHash<qint64, QStringList> pagesOfSize_;
    bool arePagesListed_ = false;
};

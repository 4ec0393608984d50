#include "intake/known_songs.h"

#include "archive/Module1.h"
#include "archive/archive_operations.h"
#include "files/data_folder.h"
#include "files/safe_write.h"
#include "text/folding.h"

#include <QDirIterator>
#include <QFileInfo>

KnownSongs::KnownSongs()
    : byTitle_(songsByTitle())
{
}

void KnownSongs::listPages()
{
    arePagesListed_ = true;
    for (QDirIterator files(dataFolder(), {"*.jpg"}, QDir::Files); files.hasNext();) {
        files.next();
        const auto page = pageOfName(files.fileName());
        if (page && page->record <= Module1.recCount)
            pagesOfSize_[files.fileInfo().size()] += files.filePath();
    }
}

int KnownSongs::songOfPage(const QString &file)
{
    if (!arePagesListed_)
        listPages();
    if (pagesOfSize_.isEmpty())
        return 0;
    const QStringList pages = pagesOfSize_.value(QFileInfo(file).size());
    QByteArray bytes;
    if (pages.isEmpty() || !readWhole(file, bytes).ok() || bytes.isEmpty())
        return 0;
    for (const QString &page : pages) {
        if (holdsJust(page, bytes))
            return pageOfName(QFileInfo(page).fileName())->record;
    }
    return 0;
}

void KnownSongs::look(ComingSong &song)
{
    const int before = song.known;
    song.known = byTitle_.value(foldedTitle(song.title));
    if (song.known == 0 && song.knownByPage == ComingSong::unlooked) {
        song.knownByPage = 0;
        for (const ComingPage &page : song.pages()) {
            if (song.knownByPage == 0 && page.pdfPage == 0 && page.isAsItWas())
                song.knownByPage = songOfPage(page.file);
        }
    }
    if (song.known == 0)
        song.known = qMax(0, song.knownByPage);
    if ((before == 0) != (song.known == 0))
        song.isTicked = song.known == 0 && song.note.isEmpty();
}

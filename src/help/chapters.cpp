#include "help/chapters.h"

#include <QHash>

QString anchorOf(const QString &heading)
{
    QString anchor;
    for (const QChar letter : heading.toLower()) {
        if (letter.isSpace())
            anchor += '-';
        else if (letter.isLetterOrNumber() || letter == '-')
            anchor += letter;
    }
    return anchor;
}

QString chapterOf(const QString &window)
{
    static const QHash<QString, QString> chapters = {
        {"Form1", "the-main-window"},
        {"sinistra", "pages"},
        {"destra", "pages"},
        {"mp3", "recordings-and-categories"},
        {"categories", "recordings-and-categories"},
        {"songs", "finding-songs"},
        {"intake", "bringing-in-songs"},
        {"playlistfrm", "playlists"},
        {"midifrm", "midi-settings"},
        {"Premerge", "songs-of-another-stand"},
        {"merging", "songs-of-another-stand"},
        {"versions", "earlier-versions"},
        {"check", "checking-the-archive"},
        {"stand", "to-the-stand"},
    };
    return chapters.value(window);
}

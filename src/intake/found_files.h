#pragma once

#include "files/progress.h"
#include "intake/contents.h"
#include "intake/known_songs.h"
#include "intake/pdf.h"
#include "intake/song_name.h"

// Files and folders that a person has dropped or chosen, made into songs.

// How names are read.
struct Reading {
    int pagesOfSong = 0; // 1 or 2; 0: as the names say
    NamesAre namesAre = NamesAre::Title;
    bool leaveOutNumbers = false;

    bool operator==(const Reading &) const = default;
};

// The files of one folder that may become songs.
struct FoundFolder {
    QString path;
    QStringList names;
};

struct FoundFiles {
    QList<FoundFolder> folders;
    int count = 0;
    int others = 0; // files of other kinds, left out
    bool isCancelled = false;
};

// The files themselves, and those in folders with what lies below them; links to folders are not followed
// there, hidden files are passed over.
FoundFiles findFiles(const QStringList &paths, const Progress &progress = {});

// Those of `found` that are not among `known`; `others` stays.
FoundFiles filesBeside(const FoundFiles &known, const FoundFiles &found);
FoundFiles filesTogether(const FoundFiles &known, const FoundFiles &added);

QStringList pdfsIn(const FoundFiles &files);

// One song for each that the files' names tell; `pdfs` tells of pdfsIn(). Known ones are noted and not
// ticked, nor are those that cannot be brought in.
QList<ComingSong> songsOf(const FoundFiles &files, const QHash<QString, PdfInfo> &pdfs,
                          const Reading &reading, KnownSongs &known);

// The songs of a book, by its contents; all pages, or two to a song, where `contents` is empty.
QList<ComingSong> songsOfBook(const QString &pdf, const PdfInfo &info, const QList<ContentsSong> &contents,
                              KnownSongs &known);

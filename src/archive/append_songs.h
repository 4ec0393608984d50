#pragma once

#include "files/data_folder.h"
#include "files/progress.h"
#include "files/result.h"

#include <QByteArray>
#include <QList>

// Adding songs behind the last one, with their pages and recordings, all at once: first the files are made
// ready beside their places, then the archive is written, then the files are put in their places. Until
// the archive is written nothing has changed; from then on the next start finishes what is still to do.

// Where a file of a new song comes from: a file that is copied byte for byte, or else what makes its
// bytes. Both empty: the song has no such file.
struct NewFile {
    QString source;
    std::function<Result(QByteArray &bytes)> make = {};
};

struct NewSong {
    QString title;
    QString author;
    QString tags;
    QString category;
    NewFile left;
    NewFile right;
    NewFile recording;
};

// A page that lay under a new song's number from before, and now has another name.
struct OldPage {
    QString path;
    QString newPath;
};

// A file that belongs to a new song, or does not belong to it, and what went wrong with it.
struct FileTrouble {
    QString path; // as it is to be told
    Result why;
    int record = 0; // the number of its song
};

// What became of new songs.
struct [[nodiscard]] AppendReport {
    Result result; // anything but fine: nothing has changed, neither on the disk nor in memory
    QList<FileTrouble> notMade; // the song came without it; the reason speaks of where it comes from
    QList<FileTrouble> notPlaced; // the same; it was ready, and could not be put in its place
    QList<OldPage> setAside;
    QList<FileTrouble> notSetAside; // from before, and still under the new song's number
};

// Refused, with the reason, where so many songs cannot be added: the archive must not be written, or has
// no room for them.
Result checkAppend(qsizetype count);

// Appends the songs to the arrays of Module1 behind recCount, and writes the archive with them and with
// all that was typed and not saved; recCount itself stays as it is until the archive is loaded again. A
// file that cannot be read or made holds up nothing else; one that cannot be written holds up everything.
// A file that lies in the place of a new one is replaced. A page from before that lies under the number of
// a song without one is set aside, a recording stays.
// `progress` is asked while files are made ready; when they are, `mayGoOn` is told which were not made, and
// may yet refuse. Refused also if another program has replaced the archive meanwhile.
AppendReport appendSongs(const QList<NewSong> &songs, const Progress &progress = {},
                         const std::function<Result(const QList<FileTrouble> &notMade)> &mayGoOn = {});

// To be called before the archive is first loaded: finishes, or else takes away, what a run that was ended
// while it added songs has left. Its result is always fine.
AppendReport finishAppending();

// For people: what a report tells beside what went as it should, in paragraphs.
QStringList troublesOf(const AppendReport &report);

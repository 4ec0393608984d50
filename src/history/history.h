#pragma once

#include "history/recovery.h"
#include "history/score_step.h"
#include "history/versions.h"

class Edits;

// What makes sure that nothing typed or replaced is gone: keeps a version of every file of the archive
// before it is replaced, and what is typed and not saved, for as long as it lives. One of them for the
// program; the data folder is that of the working directory.
class History
{
public:
    explicit History(Edits &edits);
    ~History();

    // At the start, with the archive read: tells of another program on the same folder, or that nothing can
    // be kept, and offers what an earlier run left unsaved. Returns the song to be shown, or 0. Until then
    // earlier versions are kept, and what is typed is not.
    int begin();
    // The program ends, and what is not saved is to be had back at the next start, or is not wanted.
    void end(bool wantsUnsaved);

    // The pages or the recording of a song, names within the data folder, were just put in place: they can
    // be taken back.
    void stored(const QString &what, int record, const QStringList &files);

    // Takes all that these songs have out of the archive, after a question, with its playlists' names in it:
    // the files at once, into the versions, the fields with the next Save. Their numbers stay. It is one
    // step of undo.
    void emptyNumbers(const QList<int> &songs);

    Versions versions;

private:
    History(Edits &edits, const QString &kept);
    void noteChange();

    Edits &edits_;
    Recovery recovery_;
};

#pragma once

#include "files/progress.h"
#include "files/safe_write.h"

#include <QLockFile>

// New files of the data folder on the way to their places. They are made ready in a folder of its own,
// spartiti/arriving, and put in place together once a data file tells of them. If the program is ended in
// between, the next start sees from a note that lies with them what is to become of them. While one
// running program holds the folder, no other one touches it.
class StagedFiles
{
public:
    StagedFiles();
    // Takes away what is still in the folder, and the folder; nothing that is not the program's own.
    ~StagedFiles();

    // Takes hold of the folder. Refused while another program holds it, else Unwritable.
    Result begin();
    // Takes hold of what an earlier run has left. False if there is nothing, or another program is at work
    // with it.
    bool resume();
    // Lets go of the folder with all that is in it, for a later start.
    void leave();

    // Makes the files ready, as copyFiles(); their targets are the places where they are to lie at last.
    QList<Result> make(QList<FileCopy> files, const Progress &progress);

    // To be written when all files are ready; it is safe on the disk then, as they are, and is the first
    // that is taken away.
    Result writeNote(const QByteArray &note);
    // Missing where the files were not all made ready.
    Result readNote(QByteArray &note) const;

    // Whether a file for that place is ready, and not yet there.
    bool isReady(const QString &target) const;
    // Puts each of these files in its place, whatever lies there, with one result each. It can be done
    // again: what is in place already is fine.
    QList<Result> putInPlace(const QStringList &targets);

private:
    bool takeHold();

    bool isHeld_ = false;
    QLockFile lock_;
};

#pragma once

#include "files/progress.h"
#include "files/result.h"
#include "history/thinning.h"

#include <QUndoCommand>

#include <functional>

class Edits;
class Versions;

// A step of undo for pages and recordings that were just put in place or taken away: undo has back what was
// there before, byte for byte, and what is there then becomes a version; redo does the same the other way
// round. It is pushed on the stack of the edits when all is done, and tells them the songs.
class ScoreStep : public QUndoCommand
{
public:
    // What it asks and tells while it is taken.
    struct Doors {
        std::function<Progress()> progress;
        // The files that stayed as they were, and why.
        std::function<void(const QList<Result> &failures)> tell;
    };

    // `files` are names within the data folder, all of which have just been replaced or taken away; those of
    // which nothing is known that could be had back are left out.
    ScoreStep(Edits &edits, Versions &versions, const QString &text, const QList<int> &records,
              const QStringList &files, Doors doors);

    bool isEmpty() const { return files_.isEmpty(); }

    void undo() override { step(false); }
    void redo() override { step(true); }

private:
    struct File {
        QString name;
        Version other; // what undo or redo puts there; `until` is invalid where there is to be none
        bool isDone = true; // it is as it was put in place, and not as it was before
    };

    void step(bool toDone);
    Result exchange(File &file);

    Edits &edits_;
    Versions &versions_;
    const QList<int> records_;
    const Doors doors_;
    QList<File> files_;
};

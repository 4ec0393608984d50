#pragma once

#include "files/result.h"
#include "history/thinning.h"

#include <QUndoCommand>

#include <functional>

class Edits;
class Versions;

// A step of undo for pages and recordings that were just put in place or taken away: undo has back what was
// there before, byte for byte, and what is there then becomes a version; redo does the same the other way
// round. It is pushed on the stack of the edits when all is done, and tells them the song.
class ScoreStep : public QUndoCommand
{
public:
    using Tell = std::function<void(const Result &failure)>;

    // `files` are names within the data folder, all of which have just been replaced; those of which nothing
    // is known that could be had back are left out. `tell` hears of a step that could not be taken; then the
    // file is as it was.
    ScoreStep(Edits &edits, Versions &versions, const QString &text, int record, const QStringList &files,
              Tell tell);

    bool isEmpty() const { return files_.isEmpty(); }

    void undo() override { exchange(); }
    void redo() override;

private:
    struct File {
        QString name;
        Version other; // what undo or redo puts there; `until` is invalid where there is to be none
    };

    void exchange();
    Result exchange(File &file);

    Edits &edits_;
    Versions &versions_;
    const int record_;
    const Tell tell_;
    QList<File> files_;
    bool isDone_ = false; // it is pushed when it is done already
};

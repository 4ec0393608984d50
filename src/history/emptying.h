#pragma once

#include "history/score_step.h"

#include <QList>
#include <QString>

class Edits;
class SongsOnDisk;
class Versions;

// Emptying numbers: what a song has goes, its number stays, so that all others keep theirs.

// What came of it.
struct Emptied {
    QList<int> songs;
    QList<Result> failures; // files that stayed, and why; the songs of these keep their fields
    bool wasCancelled = false;
};

// Takes pages and recording of each song away, into the versions, and then title, author, tags and category
// of those of which all went; one step of undo. Cancelled, the songs that are not among `songs` are as they
// were.
Emptied emptySongs(Edits &edits, Versions &versions, const QList<int> &songs, const ScoreStep::Doors &doors,
                   const Progress &progress);

// For people. The question says what goes and which playlists hold the songs; `keptBytes` is how much of
// their files can be kept.
QString emptyingQuestion(const QList<int> &songs, const SongsOnDisk &disk, qint64 keptBytes);
// What was not emptied of `wanted` songs, and why; empty where all was.
QString emptyingReport(const Emptied &emptied, qsizetype wanted);

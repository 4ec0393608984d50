#include "history/recovery_question.h"

#include "archive/Module1.h"
#include "history/recovery.h"
#include "history/versions.h"
#include "text/counting.h"
#include "window/message_box.h"

#include <QFile>

static constexpr qsizetype mostNamed = 5;
static constexpr qsizetype mostNumbered = 20;

static QString question(const Unsaved &unsaved)
{
    QStringList songs;
    for (const UnsavedSong &song : unsaved.songs)
        songs += songForPeople(song.record, song.is[0]);
    return "Tessaline ended before these changes were saved:\n" + someOf(songs, mostNamed, "\n")
        + "\nDo you want them back?";
}

QString putBackText(const PutBack &put)
{
    QString text =
        counted(put.records.size(), "song is", "songs are") + " as typed again. Nothing is saved yet.";
    if (put.changedMeanwhile.isEmpty())
        return text;
    QStringList numbers;
    for (const int n : put.changedMeanwhile)
        numbers += QString::number(n);
    return text + "\nThese have changed in the archive since and were left as they are now: "
        + someOf(numbers, mostNumbered, ", ") + ". What was typed is kept under \"Earlier versions\".";
}

// Returns the last song that was put back, else 0.
static int putBackAndTell(const Unsaved &unsaved, Edits &edits, bool &isWhole)
{
    const PutBack put = putBack(unsaved, edits);
    isWhole = put.changedMeanwhile.isEmpty();
    if (!isWhole)
        messageBox(putBackText(put));
    return put.records.isEmpty() ? 0 : put.records.last();
}

static void tellDamaged(const QString &path)
{
    messageBox(
        "Something was typed and not saved before Tessaline ended, but the file that kept it is damaged: "
        "nothing of it could be had back. The archive is as it was saved last.");
    QFile::remove(path + ".damaged");
    QFile::rename(path, path + ".damaged");
}

int offerWhatWasTyped(Recovery &recovery, Versions &versions, Edits &edits)
{
    int last = 0;
    if (!Module1.archiveRefusal.isEmpty())
        return last;
    for (const QString &path : recovery.leftBehind()) {
        const std::optional<Unsaved> unsaved = readUnsaved(path);
        if (!unsaved) {
            tellDamaged(path);
            continue;
        }
        bool isWhole = false;
        if (isOnDisk(*unsaved) || unsaved->songs.isEmpty())
            isWhole = true;
        else if (askYesNo(question(*unsaved)))
            last = qMax(last, putBackAndTell(*unsaved, edits, isWhole));
        if (isWhole || versions.keepBytes(unsavedName, bytesOf(*unsaved)))
            recovery.takeOver(path);
    }
    return last;
}

#include "history/history.h"

#include "archive/archive_operations.h"
#include "files/replacement.h"
#include "history/emptying.h"
#include "history/kept_folder.h"
#include "history/recovery_question.h"
#include "songs/edits.h"
#include "songs/songs_on_disk.h"
#include "text/counting.h"
#include "window/message_box.h"
#include "window/progress.h"
#include "window/report_box.h"

static QString within(const QString &kept, const QString &name)
{
    return kept.isEmpty() ? QString() : kept + name;
}

History::History(Edits &edits)
    : History(edits, keptFolder())
{
}

History::History(Edits &edits, const QString &kept)
    : versions(within(kept, "/versions"))
    , edits_(edits)
    , recovery_(
          kept, [&edits] { return unsavedNow(edits); }, [] { return !isWorkRunning(); })
{
    setReplacementKeeper(
        {[this](const QString &path) { versions.keep(path); },
         [this](const QString &path, bool wasReplaced) { versions.settle(path, wasReplaced); }});
    QObject::connect(&edits, &Edits::changed, &recovery_, [this] { noteChange(); });
    QObject::connect(&edits, &Edits::replaced, &recovery_, [this] {
        versions.forgetLast();
        noteChange();
    });
}

static QString textOf(const QList<Result> &failures)
{
    QStringList lines;
    for (const Result &failure : failures)
        lines += failure.text();
    return lines.join('\n');
}

static ScoreStep::Doors doorsOfSteps()
{
    return {[] { return progressBox("Changing pages and recordings"); },
            [](const QList<Result> &failures) {
                reportBox("These could not be undone or done again; they are as they were before.",
                          textOf(failures));
            }};
}

History::~History()
{
    setReplacementKeeper({});
}

void History::noteChange()
{
    if (hasUnsavedChanges())
        recovery_.note();
    else
        recovery_.forget();
}

int History::begin()
{
    recovery_.begin();
    if (!recovery_.canKeep())
        messageBox(
            "Tessaline has no place where it can keep earlier versions of the archive and what was typed "
            "and not saved. Everything else works.");
    else if (recovery_.isSecond())
        messageBox(
            "Tessaline is running in this folder already. What one of the two saves, the other does not "
            "see until it is started again.");
    const int song = offerWhatWasTyped(recovery_, versions, edits_);
    if (hasUnsavedChanges()) // typed while the window was just there
        recovery_.note();
    return song;
}

void History::end(bool wantsUnsaved)
{
    if (wantsUnsaved)
        recovery_.write();
    else
        recovery_.forget();
}

void History::stored(const QString &what, int record, const QStringList &files)
{
    auto step =
        std::make_unique<ScoreStep>(edits_, versions, QStringLiteral("%1 of %2").arg(what).arg(record),
                                    QList{record}, files, doorsOfSteps());
    if (!step->isEmpty())
        edits_.stack().push(step.release());
}

void History::emptyNumbers(const QList<int> &songs)
{
    if (const Result archive = checkArchive(); !archive.ok())
        return messageBox("Nothing was emptied. " + archive.text());
    SongsOnDisk disk;
    disk.read();
    if (!askBeforeLoss(emptyingQuestion(songs, disk, versions.limits().scores)))
        return;
    const Emptied emptied = emptySongs(edits_, versions, songs, doorsOfSteps(),
                                       progressBox("Emptying " + counted(songs.size(), "number")));
    if (const QString text = emptyingReport(emptied, songs.size()); !text.isEmpty())
        reportBox("Not all of it could be emptied:", text);
}

#include "history/history.h"

#include "files/replacement.h"
#include "history/kept_folder.h"
#include "history/recovery_question.h"
#include "songs/edits.h"
#include "window/message_box.h"

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
    , recovery_(kept, [&edits] { return unsavedNow(edits); })
{
    setReplacementKeeper(
        {[this](const QString &path) { versions.keep(path); },
         [this](const QString &path, bool wasReplaced) { versions.settle(path, wasReplaced); }});
    QObject::connect(&edits, &Edits::changed, &recovery_, &Recovery::note);
}

History::~History()
{
    setReplacementKeeper({});
}

int History::begin()
{
    if (!recovery_.canKeep())
        messageBox(
            "Tessaline has no place where it can keep earlier versions of the archive and what was typed "
            "and not saved. Everything else works.");
    else if (recovery_.isSecond())
        messageBox(
            "Tessaline is running in this folder already. What one of the two saves, the other does not "
            "see until it is started again.");
    return offerWhatWasTyped(recovery_, versions, edits_);
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
    auto step = std::make_unique<ScoreStep>(
        edits_, versions, QStringLiteral("%1 of %2").arg(what).arg(record), record, files,
        [](const Result &failure) {
            messageBox("This could not be undone or done again; the file is as it is now.\n"
                       + failure.text());
        });
    if (!step->isEmpty())
        edits_.stack().push(step.release());
}

#include "history/score_step.h"

#include "files/data_folder.h"
#include "history/bring_back.h"
#include "history/versions.h"
#include "songs/edits.h"

ScoreStep::ScoreStep(Edits &edits, Versions &versions, const QString &text, int record,
                     const QStringList &files, Tell tell)
    : edits_(edits)
    , versions_(versions)
    , record_(record)
    , tell_(std::move(tell))
{
    setText(text);
    for (const QString &file : files) {
        if (const std::optional<Version> before = versions.lastOf(file))
            files_ += {file, *before};
    }
}

void ScoreStep::redo()
{
    if (isDone_)
        exchange();
    isDone_ = true;
}

Result ScoreStep::exchange(File &file)
{
    const Result done = file.other.until.isValid() ? bringBack(file.other, versions_.pathOf(file.other))
                                                   : versions_.takeAway(dataFolder() + '/' + file.name);
    if (done.ok())
        file.other = versions_.lastOf(file.name).value_or(Version());
    return done;
}

void ScoreStep::exchange()
{
    for (File &file : files_) {
        if (const Result done = exchange(file); !done.ok())
            tell_(done);
    }
    edits_.rest();
    emit edits_.steppedTo({record_});
}

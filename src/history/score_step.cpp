#include "history/score_step.h"

#include "files/data_folder.h"
#include "history/bring_back.h"
#include "history/versions.h"
#include "songs/edits.h"

ScoreStep::ScoreStep(Edits &edits, Versions &versions, const QString &text, const QList<int> &records,
                     const QStringList &files, Doors doors)
    : edits_(edits)
    , versions_(versions)
    , records_(records)
    , doors_(std::move(doors))
{
    setText(text);
    for (const QString &file : files) {
        if (const std::optional<Version> before = versions.takeLast(file))
            files_ += {file, *before};
    }
}

// What was there is kept before anything is put there, or nothing is put there.
Result ScoreStep::exchange(File &file)
{
    const Result done = file.other.until.isValid() ? bringBack(versions_, file.other)
                                                   : versions_.takeAway({dataFile(file.name)}).constFirst();
    if (done.ok()) {
        file.other = versions_.takeLast(file.name).value_or(Version());
        file.isDone = !file.isDone;
    }
    return done;
}

void ScoreStep::step(bool toDone)
{
    QList<Result> failures;
    const Progress progress = doors_.progress();
    bool goesOn = true;
    for (qsizetype i = 0; i < files_.size(); i += 1) {
        if (files_[i].isDone == toDone)
            continue;
        goesOn = goesOn && progress(static_cast<int>(i), static_cast<int>(files_.size()));
        const QString path = dataFile(files_[i].name);
        const Result done =
            goesOn ? exchange(files_[i]) : Result::failed(Result::Kind::Cancelled, path, "it was cancelled");
        if (!done.ok())
            failures += done;
    }
    edits_.rest();
    emit edits_.steppedTo(records_);
    if (!failures.isEmpty())
        doors_.tell(failures);
}

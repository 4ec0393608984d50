#include "playlists/playlist_questions.h"

#include "archive/Module1.h"
#include "text/counting.h"
#include "window/message_box.h"

bool canBeSaved(const QString &name)
{
    if (name.isEmpty())
        messageBox("You must type a name for the playlist", "Warning!");
    else if (isClosingToken(name))
        messageBox("A playlist cannot have this name: in the file, ]; stands for the end.");
    else if (!Module1.archiveRefusal.isEmpty()) // then no song has a number
        messageBox("The playlist was not saved. " + Module1.archiveRefusal);
    else
        return true;
    return false;
}

bool hasRoomFor(qsizetype songs, const EditedList &list)
{
    if (songs <= list.room())
        return true;
    if (list.room() == 0)
        messageBox(QStringLiteral("The playlist is full: it holds %1 songs.").arg(EditedList::most));
    else
        messageBox(
            QStringLiteral("The playlist has room for %1 more, and %2 were to be added. None was added.")
                .arg(counted(list.room(), "song"), QString::number(songs)));
    return false;
}

bool canBePicked(qsizetype songs)
{
    if (songs > EditedList::most)
        messageBox(QStringLiteral("This playlist holds %1 songs, and no more than %2 can be worked on here. "
                                  "Nothing was changed.")
                       .arg(songs)
                       .arg(EditedList::most));
    return songs <= EditedList::most;
}

bool mayLose(const EditedList::Losses &losses)
{
    QStringList lost;
    if (losses.notInArchive > 0)
        lost += counted(losses.notInArchive, "song") + " not in the archive";
    if (losses.notYetSaved > 0)
        lost += counted(losses.notYetSaved, "song") + " added before the archive was saved";
    return lost.isEmpty()
        || askBeforeLoss(QStringLiteral("Saving the playlist drops %1. Do you want to save it all the same?")
                             .arg(lost.join(" and ")));
}

bool mayReplace(PlaylistSave &save, const QStringList &stored, const QStringList &picked)
{
    save.known = stored;
    if (picked.isEmpty()) {
        save.isAdded =
            stored.isEmpty() || !askBeforeLoss("There is a playlist of this name already. Replace it?");
        return true;
    }
    if (stored.isEmpty())
        return askBeforeLoss("This playlist has been deleted since it was picked. Do you want to save it all "
                             "the same?");
    if (stored == picked)
        return askBeforeLoss(QStringLiteral("There are %1 different playlists of this name, and saving "
                                            "replaces all of them. Do you want to save it all the same?")
                                 .arg(stored.size()));
    return askBeforeLoss("This playlist has been changed since it was picked, perhaps by another program. "
                         "Saving replaces it. Do you want to save it all the same?");
}

static QString shortened(const QString &name)
{
    static constexpr qsizetype most = 100;
    return name.size() > most ? name.first(most) + QChar(0x2026) : name;
}

bool mayDelete(const QString &name, const QStringList &stored)
{
    const QString question = stored.size() > 1
        ? QStringLiteral("Delete the %1 playlists of the name %2?").arg(stored.size()).arg(shortened(name))
        : QStringLiteral("Delete the playlist %1?").arg(shortened(name));
    return askBeforeLoss(question);
}

bool mayDeleteChanged()
{
    return askBeforeLoss("This playlist has been changed since it was picked, perhaps by another program. "
                         "Do you want to delete it all the same?");
}

bool tellFailure(const Result &result, const QString &notDone)
{
    using Kind = Result::Kind;
    if (result.kind == Kind::Unwritable || result.kind == Kind::Refused)
        messageBox(notDone + " The file is as it was before.\n" + result.text());
    else if (!result.ok())
        messageBox("Nothing was changed. " + result.refusal());
    return !result.ok();
}

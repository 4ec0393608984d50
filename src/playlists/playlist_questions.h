#pragma once

#include "playlists/edited_list.h"
#include "playlists/playlist_store.h"

// What the Playlist Manager asks and tells, each in a message box.

// True if the list can be saved under that name; else the person is told why not.
bool canBeSaved(const QString &name);

// True if the songs have room in the list; else the person is told that none was added.
bool hasRoomFor(qsizetype songs, const EditedList &list);
// The same for a stored playlist of so many songs, which was picked.
bool canBePicked(qsizetype songs);

// Whether a Save may leave out these songs; asks nothing if there are none.
bool mayLose(const EditedList::Losses &losses);

// Something else is stored under the name than was known; what the person decides goes into `save`. `picked`
// was stored when the playlist was picked; it is empty for a list that is no picked one. False: no Save.
bool mayReplace(PlaylistSave &save, const QStringList &stored, const QStringList &picked);

// Whether the playlists stored under that name may be deleted.
bool mayDelete(const QString &name, const QStringList &stored);
// Whether they may though something else is stored than was picked.
bool mayDeleteChanged();

// True if the result is not fine, and then the person is told, with what was not done as a sentence.
bool tellFailure(const Result &result, const QString &notDone);

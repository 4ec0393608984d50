#include "playlists/playlist_store.h"

#include "files/data_folder.h"
#include "files/platform.h"

#include <utility>

using Kind = Result::Kind;

Result openPlaylists(Playlists &playlists)
{
    if (!isMissing(playlistPath()))
        return readPlaylistFile(playlists);
    Result created = createPlaylistFile();
    if (created.ok())
        playlists = {};
    return created;
}

Result reopenPlaylists(Playlists &playlists)
{
    Result read = readPlaylistFile(playlists);
    return read.kind == Kind::Missing ? Result{} : read;
}

static PlaylistChange look(Playlists &onDisk, const QString &name)
{
    PlaylistChange change{reopenPlaylists(onDisk)};
    change.stored = onDisk.storedUnder(name);
    change.count = onDisk.count();
    return change;
}

static void finish(PlaylistChange &change, const Result &written, Playlists &playlists, Playlists &onDisk)
{
    change.result = written;
    change.isDone = written.ok();
    if (written.ok())
        playlists = std::move(onDisk);
}

PlaylistChange savePlaylist(Playlists &playlists, const PlaylistSave &save)
{
    Playlists onDisk = playlists;
    PlaylistChange change = look(onDisk, save.name);
    const QString shown = save.isAdded ? QString() : save.name;
    if (change.result.ok() && (save.isAdded || change.stored == save.known))
        finish(change, writePlaylistFile(onDisk, save.name, shown, save.songs), playlists, onDisk);
    return change;
}

PlaylistChange deletePlaylist(Playlists &playlists, const QString &name, const QStringList &known)
{
    Playlists onDisk = playlists;
    PlaylistChange change = look(onDisk, name);
    if (change.result.ok() && (change.stored.isEmpty() || change.stored == known))
        finish(change, writePlaylistFileWithout(onDisk, name), playlists, onDisk);
    return change;
}

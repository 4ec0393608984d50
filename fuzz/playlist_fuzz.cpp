// The playlists: whatever is read and written again reads the same; a refused file stays.

#include "memory_files.h"
#include "playlists/playlist_file.h"
#include "playlists/song_list.h"

static bool same(const Playlists &one, const Playlists &other)
{
    return one.playlistSlot == other.playlistSlot && one.playlistName == other.playlistName
        && one.playlistSongs == other.playlistSongs;
}

extern "C" int LLVMFuzzerTestOneInput(const char *data, size_t size)
{
    static Playlists playlists;
    static Playlists again;
    playlists = {};
    again = {};
    memoryFile = QByteArray(data, static_cast<qsizetype>(size));
    if (!readPlaylistFile(playlists).ok()) {
        require(same(playlists, again));
        return 0;
    }
    if (playlists.count() == 0)
        return 0;
    const auto last = static_cast<size_t>(playlists.count());
    for (const int number : decodeSongList(playlists.playlistSongs[last]))
        require(number >= 0 && number <= 9999);
    const QString name = playlists.playlistName[last];
    require(writePlaylistFile(playlists, name, name, playlists.songsOf(name)).ok());
    require(readPlaylistFile(again).ok() && same(playlists, again));
    return 0;
}

// The playlists: whatever is read and written again reads the same; a refused file stays.

#include "memory_files.h"
#include "playlists/playlist_file.h"

#include <algorithm>

// Only what is in use is compared: the arrays are large, and the runs are many.
static bool same(const Playlists &one, const Playlists &other)
{
    const auto used = one.playlistSlot + 1;
    return one.playlistSlot == other.playlistSlot
        && std::equal(&one.playlistName[1], &one.playlistName[0] + used, &other.playlistName[1])
        && std::equal(&one.playlistSongs[1], &one.playlistSongs[0] + used - 1, &other.playlistSongs[1]);
}

extern "C" int LLVMFuzzerTestOneInput(const char *data, size_t size)
{
    static Playlists playlists;
    static Playlists again;
    static constexpr int untouched = -1;
    playlists.playlistSlot = untouched;
    memoryFile = QByteArray(data, static_cast<qsizetype>(size));
    if (!readPlaylistFile(playlists).ok()) {
        require(playlists.playlistSlot == untouched);
        return 0;
    }
    if (playlists.count() == 0)
        return 0;
    const auto last = static_cast<size_t>(playlists.count());
    for (const int number : decodeSongList(playlists.playlistSongs[last]))
        require(number >= 0 && number <= 9999);
    const QString name = playlists.playlistName[last];
    require(writePlaylistFile(playlists, name, "", "1,#").ok()); // one more of the same name
    require(readPlaylistFile(again).ok() && same(playlists, again));
    require(writePlaylistFileWithout(again, name).ok() && readPlaylistFile(playlists).ok()
            && same(playlists, again));
    return 0;
}

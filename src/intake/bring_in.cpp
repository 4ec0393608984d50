#include "intake/bring_in.h"

#include "archive/Module1.h"
#include "archive/archive_file.h"
#include "files/platform.h"
#include "intake/page_maker.h"
#include "playlists/playlist_store.h"
#include "text/counting.h"

#include <QFileInfo>

using Kind = Result::Kind;

static Result refused(const QString &path, const QString &reason)
{
    return Result::failed(Kind::Refused, path, reason);
}

Result checkBringIn(qsizetype count)
{
    if (const Result possible = checkAppend(count); !possible.ok())
        return possible;
    if (wasArchiveReplaced())
        return refused(archivePath(),
                       "Another program has changed spartiti/archivio.js since it was read here. \"Save\" in "
                       "the main window asks which of the two is to stay.");
    return {};
}

Result checkNewPlaylist(const QString &name)
{
    if (name.trimmed().isEmpty())
        return refused(playlistPath(), "The playlist has no name.");
    if (isClosingToken(name))
        return refused(playlistPath(), "A playlist cannot have the name " + name + '.');
    Playlists playlists;
    const Result read = readPlaylistFile(playlists);
    if (read.kind == Kind::Missing)
        return {};
    if (!read.ok())
        return refused(playlistPath(), read.refusal());
    if (playlists.count() >= Playlists::most)
        return refused(playlistPath(), "There are 999 playlists, and there can be no more.");
    if (!playlists.storedUnder(name).isEmpty())
        return refused(playlistPath(),
                       "There is a playlist \"" + name + "\" already. Give this one another name.");
    return {};
}

static QList<NewSong> newSongs(const QList<ComingSong> &songs, PageMaker &maker)
{
    const bool hasEmptySheet = !isMissing(emptyPagePath());
    QList<NewSong> all;
    for (const ComingSong &song : songs) {
        NewSong made{song.title, song.author, song.tags, QString::number(song.category), {}, {}, {}};
        made.left = maker.fileOf(song.left);
        made.right = maker.fileOf(song.right);
        if (song.left.exists() && !song.right.exists() && hasEmptySheet)
            made.right.source = emptyPagePath();
        made.recording.source = song.recording;
        all += made;
    }
    return all;
}

// An empty sheet that cannot be read keeps no song out.
static Result checkMade(const QList<FileTrouble> &notMade, int before, BringInReport &report)
{
    for (const auto &[path, why, record] : notMade) {
        if (why.file == emptyPagePath())
            continue;
        QString &words = report.cannotCome[record - before - 1];
        words += (words.isEmpty() ? QString() : QStringLiteral("; ")) + QFileInfo(why.file).fileName() + ": "
            + why.reason;
    }
    return report.cannotCome.isEmpty()
        ? Result{}
        : refused(archivePath(),
                  counted(report.cannotCome.size(), "song cannot", "songs cannot") + " be made.");
}

static Result storePlaylist(const QString &name, int firstSong, qsizetype count)
{
    QString songs;
    for (qsizetype i = 0; i < count; i += 1)
        songs += QString::number(firstSong + i) + ',';
    Playlists playlists;
    if (const Result opened = openPlaylists(playlists); !opened.ok())
        return opened;
    const PlaylistChange change = savePlaylist(playlists, {name, songs + '#', {}, false});
    if (change.result.ok() && !change.isDone)
        return refused(playlistPath(), "There is a playlist \"" + name + "\" already.");
    return change.result;
}

BringInReport bringIn(const QList<ComingSong> &songs, const QString &playlist, const Progress &progress)
{
    BringInReport report;
    report.result = checkBringIn(songs.size());
    if (report.result.ok() && !playlist.isEmpty())
        report.result = checkNewPlaylist(playlist);
    if (!report.result.ok())
        return report;
    std::pair<int, int> latest;
    const Progress noted = [&](int done, int all) {
        latest = {done, all};
        return !progress || progress(done, all);
    };
    PageMaker maker([&] { return noted(latest.first, latest.second); });
    const int before = Module1.recCount;
    static_cast<AppendReport &>(report) =
        appendSongs(newSongs(songs, maker), noted,
                    [&](const auto &notMade) { return checkMade(notMade, before, report); });
    if (!report.result.ok())
        return report;
    report.firstSong = before + 1;
    report.count = static_cast<int>(songs.size());
    if (!playlist.isEmpty())
        report.playlist = storePlaylist(playlist, report.firstSong, songs.size());
    return report;
}

#include "stand/stand_look.h"

#include "merge/merge_source.h"
#include "playlists/playlist_file.h"
#include "stand/archive_facts.h"
#include "text/folding.h"

#include <QDir>
#include <QFileInfo>
#include <QStorageInfo>

#include <algorithm>
#include <filesystem>
#include <limits>

using Kind = Result::Kind;

int StandLook::countOf(PlannedFile::Task task) const
{
    const auto isOf = [task](const PlannedFile &planned) { return planned.task == task; };
    return static_cast<int>(std::count_if(plan.begin(), plan.end(), isOf));
}

static Result checkFolders(const QString &root)
{
    const QString there = QFileInfo(root).canonicalFilePath();
    const QString own = QFileInfo(dataFolder()).canonicalFilePath();
    if (there.isEmpty() || !QFileInfo(there).isDir())
        return Result::failed(Kind::Missing, root, "there is no such folder");
    if ((there + '/').startsWith(own + '/') || QFileInfo(dataFolder(root)).canonicalFilePath() == own)
        return Result::failed(Kind::Refused, root,
                              "This is the archive itself; choose the folder of the stand.");
    return {};
}

static void readOwnFiles(StandLook &look)
{
    const ArchiveTable archive = readOwnArchive();
    look.result = archive.result;
    look.songs = archive.count();
    look.titles = titlesOf(archive);
    Playlists playlists;
    const Result read = readPlaylistFile(playlists);
    look.playlists = playlists.count();
    if (look.result.ok() && !read.ok() && read.kind != Kind::Missing)
        look.result = read;
}

static void compareFiles(StandLook &look, const Progress &progress)
{
    FileListing here = listFiles(".", progress);
    const FileListing there = here.result.ok() ? listFiles(look.root, progress) : FileListing();
    look.result = here.result.ok() ? there.result : here.result;
    if (!look.result.ok())
        return;
    look.here = std::move(here.files);
    look.plan = planOf(look.here, there.files, foldsCase(look.root));
}

bool hasStartPage(const QString &root)
{
    return !QDir(root).entryList({"*.html"}, QDir::Files).isEmpty();
}

// Asked of the folder itself: not every disk is in the system's list of them, which QStorageInfo reads.
static qint64 roomIn(const QString &root)
{
    std::error_code failed;
    const auto space = std::filesystem::space(QFileInfo(root).filesystemAbsoluteFilePath(), failed);
    static constexpr auto most = std::uintmax_t(std::numeric_limits<qint64>::max());
    return static_cast<qint64>(failed ? most : std::min(space.available, most)); // a try will tell
}

StandLook lookAtStand(const QString &root, const Progress &progress)
{
    static constexpr qint64 smallestBlock = 4096;
    StandLook look;
    look.result = checkFolders(root);
    look.root = root;
    if (look.result.ok())
        readOwnFiles(look);
    if (look.result.ok())
        compareFiles(look, progress);
    if (!look.result.ok())
        return look;
    look.roomNeeded = roomNeeded(look.plan, qMax<qint64>(QStorageInfo(root).blockSize(), smallestBlock));
    look.roomThere = roomIn(root);
    return look;
}

QList<OtherSong> otherSongsOn(const StandLook &look)
{
    const QStringList here = titlesOf(readOwnArchive()), there = titlesOf(readMergeSource(look.root).archive);
    QList<OtherSong> songs;
    for (int n = 1; n < there.size(); n += 1) {
        const OtherSong song{n, here.value(n), there[n]};
        if (!foldedTitle(song.there).isEmpty() && foldedTitle(song.here) != foldedTitle(song.there))
            songs += song;
    }
    return songs;
}

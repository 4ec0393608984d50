#include "history/bring_back.h"

#include "files/data_folder.h"
#include "files/safe_write.h"
#include "history/unsaved.h"
#include "history/versions.h"
#include "songs/edits.h"
#include "text/counting.h"

#include <QMap>

ArchiveTable archiveOfVersion(const QString &path)
{
    QByteArray bytes;
    if (const Result read = readWhole(path, bytes); !read.ok()) {
        ArchiveTable none;
        none.result = read;
        return none;
    }
    return readArchive(bytes, ownArchive, path);
}

QStringList songsBehind(int count)
{
    const ArchiveTable present = archiveOfVersion(archivePath());
    QStringList songs;
    for (int n = count + 1; n <= present.count(); n += 1)
        songs += songForPeople(n, present.text(present.records[static_cast<size_t>(n)].title));
    return songs;
}

// A data file that is a link is followed, a page or a recording that is one is replaced itself.
static Result putThere(const QString &path, const QString &target, Version::Kind kind)
{
    if (kind == Version::Kind::Score)
        return copyFile(path, target);
    QByteArray bytes;
    const Result read = readWhole(path, bytes);
    return read.ok() ? replaceFile(target, bytes) : read;
}

Result bringBack(Versions &versions, const Version &version)
{
    const QString target = dataFile(version.file);
    if (const Result kept = versions.secure(target); !kept.ok())
        return kept;
    const Result done = putThere(versions.pathOf(version), target, version.kind());
    versions.settle(target, done.ok());
    return done;
}

// Title, author, tags, category, as Field has them.
using Fields = QStringList;

static QMap<int, Fields> songsIn(const Version &version, const QString &path)
{
    QMap<int, Fields> songs;
    if (version.file == unsavedName) {
        for (const UnsavedSong &song : readUnsaved(path).value_or(Unsaved()).songs)
            songs[song.record] = {song.is.begin(), song.is.end()};
        return songs;
    }
    const ArchiveTable table = archiveOfVersion(path);
    for (int n = 1; n <= table.count(); n += 1) {
        const ArchiveRecord &song = table.records[static_cast<size_t>(n)];
        songs[n] = {table.text(song.title), table.text(song.author), table.text(song.tags),
                    table.text(song.category)};
    }
    return songs;
}

QList<int> bringBackSongs(Edits &edits, const Version &version, const QString &path,
                          const QList<int> &records)
{
    const QMap<int, Fields> songs = songsIn(version, path);
    QList<int> found;
    QList<int> missing;
    for (const int n : records)
        (songs.contains(n) && n <= Module1.recCount ? found : missing) += n;
    if (found.isEmpty())
        return missing;
    edits.stack().beginMacro(counted(found.size(), "song") + " brought back");
    for (const Field field : {Field::Title, Field::Author, Field::Tags, Field::Category}) {
        QStringList texts;
        for (const int n : found)
            texts += songs[n][static_cast<qsizetype>(field)];
        edits.set(field, found, texts);
    }
    edits.stack().endMacro();
    return missing;
}

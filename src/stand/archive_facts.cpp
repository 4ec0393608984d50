#include "stand/archive_facts.h"

#include "files/data_folder.h"
#include "files/platform.h"
#include "files/safe_write.h"
#include "stand/stand_files.h"

#include <QFileInfo>

namespace fs = std::filesystem;

// Hidden files, broken links and pipes too.
static Result takeNames(ArchiveFacts &facts, const QString &folder, const QString &before)
{
    if (isNothingThere(folder))
        return {};
    std::error_code failure;
    fs::directory_iterator entry(QFileInfo(folder).filesystemFilePath(), failure);
    for (; !failure && entry != fs::directory_iterator(); entry.increment(failure)) {
        const QString name = before + QFileInfo(entry->path()).fileName();
        facts.names.insert(name);
        std::error_code isGone;
        if (entry->is_regular_file(isGone))
            facts.files.insert(name);
    }
    return failure ? cannotBeListed(folder, failure) : Result{};
}

ArchiveTable readOwnArchive()
{
    QByteArray bytes;
    const Result read = readWhole(archivePath(), bytes);
    if (read.ok())
        return readArchive(bytes, ownArchive);
    ArchiveTable archive;
    archive.result = read;
    return archive;
}

QStringList titlesOf(const ArchiveTable &archive)
{
    QStringList titles;
    for (const ArchiveRecord &record : archive.records)
        titles += archive.text(record.title);
    return titles;
}

ArchiveFacts readFacts()
{
    ArchiveFacts facts;
    facts.archive = readOwnArchive();
    facts.categories = readCategoriesOf(".");
    facts.playlistsRead = readPlaylistFile(facts.playlists);
    facts.midiRead = readMidiFile(facts.midi);
    facts.listed = takeNames(facts, dataFolder(), {});
    if (facts.listed.ok()) {
        facts.listed = takeNames(facts, recordingsFolder(), "audio/");
    } else {
        facts.names.clear();
        facts.files.clear();
    }
    return facts;
}

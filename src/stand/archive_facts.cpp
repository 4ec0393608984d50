#include "stand/archive_facts.h"

#include "files/safe_write.h"

#include <QDirIterator>

// Hidden files, broken links and pipes too.
static void takeNames(ArchiveFacts &facts, const QString &folder, const QString &before)
{
    const auto everything = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
    for (QDirIterator entries(folder, everything); entries.hasNext();) {
        entries.next();
        const QString name = before + entries.fileName();
        facts.names.insert(name);
        if (entries.fileInfo().isFile())
            facts.files.insert(name);
    }
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
    takeNames(facts, dataFolder(), {});
    takeNames(facts, recordingsFolder(), "audio/");
    return facts;
}

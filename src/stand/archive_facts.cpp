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

static void readOwnArchive(ArchiveTable &archive)
{
    QByteArray bytes;
    if (const Result read = readWhole(archivePath(), bytes); !read.ok())
        archive.result = read;
    else
        archive = readArchive(bytes, ownArchive);
}

ArchiveFacts readFacts()
{
    ArchiveFacts facts;
    readOwnArchive(facts.archive);
    facts.categories = readCategoriesOf(".");
    facts.playlistsRead = readPlaylistFile(facts.playlists);
    facts.midiRead = readMidiFile(facts.midi);
    takeNames(facts, dataFolder(), {});
    takeNames(facts, recordingsFolder(), "audio/");
    return facts;
}

#include "archive/archive_operations.h"

#include "files/data_folder.h"
#include "files/platform.h"
#include "files/safe_write.h"
#include "text/folding.h"

#include <memory>

static bool holdsText(const Module1State &state, size_t n)
{
    return !state.recTitle[n].isEmpty() || !state.recAuthor[n].isEmpty() || !state.recTags[n].isEmpty();
}

bool hasTextBehindLast()
{
    return Module1.recCount < Module1State::lastRecord
        && holdsText(Module1, static_cast<size_t>(Module1.recCount) + 1);
}

bool hasUnsavedChanges()
{
    if (Module1.archiveChanged)
        return true;
    for (size_t n = static_cast<size_t>(Module1.recCount) + 1; n <= Module1State::lastRecord; n += 1) {
        if (holdsText(Module1, n))
            return true;
    }
    return false;
}

QHash<QString, int> songsByTitle()
{
    QHash<QString, int> songs;
    for (int n = Module1.recCount; n > 0; n -= 1)
        songs[foldedTitle(Module1.recTitle[static_cast<size_t>(n)])] = n;
    songs.remove(QString());
    return songs;
}

bool isArchiveOtherThan(QByteArray &known)
{
    QByteArray bytes;
    const bool differs = readWhole(archivePath(), bytes).ok() && bytes != known;
    if (differs)
        known = std::move(bytes);
    return differs;
}

void forgetArchive()
{
    for (Module1State::Column *column :
         {&Module1.recNumber, &Module1.recTitle, &Module1.recAuthor, &Module1.recTags, &Module1.recCategory})
        column->fill({});
    Module1.recCount = 0;
    Module1.archiveRefusal.clear();
    Module1.archiveOnDisk.clear();
    Module1.archiveChanged = false;
}

// As added songs behind the last one, as far as there is room.
static void appendTyped(const Module1State &typed)
{
    for (size_t n = 1; n <= Module1State::lastRecord && Module1.recCount < Module1State::lastRecord; n += 1) {
        if (!holdsText(typed, n))
            continue;
        Module1.recCount += 1;
        const auto entry = static_cast<size_t>(Module1.recCount);
        Module1.recTitle[entry] = typed.recTitle[n];
        Module1.recAuthor[entry] = typed.recAuthor[n];
        Module1.recTags[entry] = typed.recTags[n];
        Module1.recCategory[entry] = typed.recCategory[n];
        Module1.archiveChanged = true;
    }
}

// A file of no bytes may be one that is being copied; an archive of no titles has some.
bool hasArchiveArrived()
{
    return !isMissing(archivePath())
        && (Module1.archiveOnDisk.isEmpty() || !holdsJust(archivePath(), Module1.archiveOnDisk));
}

// Writes an archive of the songs in memory, at least of one, and reads it.
static void writeFirst(ArchiveBeginning &begun)
{
    begun.written = writeArchive(qMax(Module1.recCount, 1));
    if (begun.written.ok())
        begun.reading = loadArchive();
}

static void readArrived(ArchiveBeginning &begun)
{
    begun.hasArrived = true;
    begun.reading = loadArchive();
    begun.written = Module1.archiveRefusal.isEmpty() ? begun.reading.result : checkArchive();
}

ArchiveBeginning beginArchive()
{
    const auto typed = std::make_unique<const Module1State>(Module1);
    ArchiveBeginning begun;
    const bool hasArrived = hasArchiveArrived();
    forgetArchive();
    if (hasArrived)
        readArrived(begun);
    appendTyped(*typed);
    if (!hasArrived)
        writeFirst(begun);
    if (!begun.written.ok()) {
        const QString refusal = Module1.archiveRefusal;
        Module1 = *typed;
        Module1.archiveRefusal = refusal;
    }
    return begun;
}

ArchiveSaving saveArchive()
{
    ArchiveSaving saved;
    saved.written = writeArchive();
    if (saved.written.ok())
        saved.readBack = loadArchive().result;
    return saved;
}

Adding addSong()
{
    if (Module1.recTitle[static_cast<size_t>(Module1.recCount)].isEmpty())
        return Adding::LastIsEmpty;
    if (Module1.recCount == Module1State::lastRecord)
        return Adding::Full;
    Module1.recCount += 1;
    Module1.archiveChanged = true;
    return Adding::Added;
}

#include "archive/append_songs.h"

#include "archive/Module1.h"
#include "archive/archive_file.h"
#include "archive/archive_operations.h"
#include "files/old_pages.h"
#include "files/platform.h"
#include "files/safe_write.h"
#include "files/staged_files.h"

#include <QCryptographicHash>
#include <QFileInfo>

#include <memory>
#include <optional>

using Kind = Result::Kind;

static Result refused(const QString &reason)
{
    return Result::failed(Kind::Refused, archivePath(), reason);
}

Result checkAppend(qsizetype count)
{
    if (const Result writable = checkArchive(); !writable.ok())
        return writable;
    const int room = Module1State::lastRecord - Module1.recCount;
    if (count <= room)
        return {};
    const auto reason = QStringLiteral("The archive has room for %1 more titles, and %2 are ticked.");
    return refused(reason.arg(room).arg(count));
}

static QByteArray fingerprint(const QByteArray &archive)
{
    return QCryptographicHash::hash(archive, QCryptographicHash::Sha256).toHex();
}

// Empty where there is no archive, or it cannot be read.
static QByteArray fingerprintOnDisk()
{
    QByteArray bytes;
    return readWhole(archivePath(), bytes).ok() ? fingerprint(bytes) : QByteArray();
}

// A page of a song, or its recording where there is no page. Written "13L", "13R" and "13".
struct SongFile {
    int record = 0;
    std::optional<Page> page;

    QString path() const { return page ? pagePath(record, *page) : recordingPath(record); }
};

static QByteArray textOf(const SongFile &file)
{
    const char *side = !file.page ? "" : *file.page == Page::Left ? "L" : "R";
    return QByteArray::number(file.record) + side;
}

static SongFile songFileOf(QByteArrayView text)
{
    const bool isPage = text.endsWith('L') || text.endsWith('R');
    SongFile file{text.chopped(isPage ? 1 : 0).toInt(), {}};
    if (isPage)
        file.page = text.endsWith('L') ? Page::Left : Page::Right;
    return file;
}

// What is to be done once the archive is the one of this fingerprint.
struct Plan {
    QByteArray archive;
    QList<SongFile> toSetAside;
    QList<SongFile> toPutInPlace;
};

// A line for each, behind "aside " or "put ".
static QByteArray noteOf(const Plan &plan)
{
    QByteArray note = plan.archive + '\n';
    for (const SongFile &old : plan.toSetAside)
        note += "aside " + textOf(old) + '\n';
    for (const SongFile &ready : plan.toPutInPlace)
        note += "put " + textOf(ready) + '\n';
    return note;
}

static Plan planOf(const QByteArray &note)
{
    QByteArrayList lines = note.split('\n');
    Plan plan{lines.takeFirst(), {}, {}};
    for (const QByteArray &line : std::as_const(lines)) {
        const SongFile file = songFileOf(QByteArrayView(line).sliced(line.indexOf(' ') + 1));
        if (line.startsWith("aside ") && file.record > 0 && file.page)
            plan.toSetAside += file;
        else if (line.startsWith("put ") && file.record > 0)
            plan.toPutInPlace += file;
    }
    return plan;
}

static void setPageAside(const SongFile &old, AppendReport &report)
{
    const QString path = shownPath(old.path());
    const PageAside aside = setAside(old.record, *old.page);
    if (!aside.result.ok())
        report.notSetAside += {path, aside.result, old.record};
    else if (!aside.newPath.isEmpty())
        report.setAside += {path, shownPath(aside.newPath)};
}

// What a page may not replace: a folder, or a file that is protected against writing.
static bool isInTheWay(const QString &path)
{
    const QFileInfo old(path);
    return old.exists() && !old.isSymbolicLink() && !(old.isFile() && old.isWritable());
}

// It can be done again.
static void carryOut(const Plan &plan, StagedFiles &files, AppendReport &report)
{
    for (const SongFile &old : plan.toSetAside)
        setPageAside(old, report);
    QStringList places;
    for (const SongFile &ready : plan.toPutInPlace) {
        places += ready.path();
        if (ready.page && files.isReady(ready.path()) && isInTheWay(ready.path()))
            setPageAside(ready, report);
    }
    const QList<Result> results = files.putInPlace(places);
    for (qsizetype i = 0; i < results.size(); i += 1) {
        const SongFile &ready = plan.toPutInPlace[i];
        if (results[i].ok())
            continue;
        report.notPlaced += {results[i].file, results[i], ready.record};
        if (ready.page)
            setPageAside(ready, report);
    }
}

AppendReport finishAppending()
{
    AppendReport report;
    StagedFiles files;
    QByteArray note;
    QByteArray archive;
    if (!files.resume())
        return report;
    const Result noted = files.readNote(note);
    if (noted.kind == Kind::Missing)
        return report;
    const Result read = readWhole(archivePath(), archive);
    if (!noted.ok() || (!read.ok() && read.kind != Kind::Missing))
        files.leave(); // until the disk can tell which archive it is
    else if (const Plan plan = planOf(note); plan.archive == fingerprint(archive))
        carryOut(plan, files, report);
    return report;
}

// A file of a new song, and where it comes from.
struct ComingFile {
    SongFile name;
    NewFile from;
    bool ready = false;

    bool exists() const { return !from.source.isEmpty() || from.make; }
};

static QList<ComingFile> filesOf(const QList<NewSong> &songs)
{
    QList<ComingFile> files;
    int record = Module1.recCount;
    for (const NewSong &song : songs) {
        record += 1;
        files += {{record, Page::Left}, song.left};
        files += {{record, Page::Right}, song.right};
        files += {{record, {}}, song.recording};
    }
    return files;
}

static QList<Result> make(StagedFiles &staged, const QList<ComingFile> &files, const Progress &progress)
{
    QList<FileCopy> copies;
    for (const ComingFile &file : files) {
        if (file.exists())
            copies += {file.from.source, file.name.path(), file.from.make};
    }
    return staged.make(copies, progress);
}

static Result makeReady(StagedFiles &staged, QList<ComingFile> &files, const Progress &progress,
                        AppendReport &report)
{
    if (const Result begun = staged.begin(); !begun.ok())
        return begun;
    QList<Result> made = make(staged, files, progress);
    for (ComingFile &file : files) {
        if (!file.exists())
            continue;
        if (made.isEmpty())
            return Result::failed(Kind::Cancelled, archivePath(), "it was cancelled");
        const Result result = made.takeFirst();
        if (result.kind == Kind::Unwritable || result.kind == Kind::Cancelled)
            return result;
        if (!result.ok())
            report.notMade += {shownPath(file.name.path()), result, file.name.record};
        file.ready = result.ok();
    }
    return {};
}

// A page from before would pass for that of a new song that has none.
static Plan planFor(const QList<ComingFile> &files)
{
    Plan plan;
    for (const ComingFile &file : files) {
        if (file.ready)
            plan.toPutInPlace += file.name;
        else if (file.name.page && !isMissing(file.name.path()))
            plan.toSetAside += file.name;
    }
    return plan;
}

static int putRecords(const QList<NewSong> &songs)
{
    auto entry = static_cast<size_t>(Module1.recCount);
    for (const NewSong &song : songs) {
        entry += 1;
        Module1.recNumber[entry] = QString::number(entry);
        Module1.recTitle[entry] = song.title;
        Module1.recAuthor[entry] = song.author;
        Module1.recTags[entry] = song.tags;
        Module1.recCategory[entry] = song.category;
    }
    return static_cast<int>(entry);
}

static Result writeArchiveWith(const QList<NewSong> &songs, StagedFiles &staged, Plan &plan)
{
    const auto before = std::make_unique<Module1State>(Module1);
    const int count = putRecords(songs);
    plan.archive = fingerprint(archiveBytes(count));
    Result written = staged.writeNote(noteOf(plan));
    if (written.ok())
        written = writeArchive(count);
    if (!written.ok())
        Module1 = *before;
    return written;
}

AppendReport appendSongs(const QList<NewSong> &songs, const Progress &progress,
                         const std::function<Result(const QList<FileTrouble> &notMade)> &mayGoOn)
{
    AppendReport report = finishAppending();
    report.result = checkAppend(songs.size());
    if (!report.result.ok())
        return report;
    const QByteArray found = fingerprintOnDisk();
    QList<ComingFile> files = filesOf(songs);
    StagedFiles staged;
    report.result = makeReady(staged, files, progress, report);
    if (report.result.ok() && mayGoOn)
        report.result = mayGoOn(report.notMade);
    if (report.result.ok() && fingerprintOnDisk() != found)
        report.result = refused("Another program has just changed " + shownPath(archivePath()) + '.');
    if (!report.result.ok())
        return report;
    Plan plan = planFor(files);
    report.result = writeArchiveWith(songs, staged, plan);
    if (report.result.ok())
        carryOut(plan, staged, report);
    return report;
}

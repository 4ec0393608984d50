// fault_driver FOLDER OPERATION: one operation of the core in an archive's folder, as a window does it.
// It prints nothing, so that its exit code is the truth whatever is refused to it: 0 done, 1 not done and
// told so, 2 called wrongly, 3 the left page stored and the empty sheet told not to be; where the archive
// holds the new songs and files of theirs are told to be missing or another's, 32 and one bit for each: left
// and right of the first song, then of the second, and its recording; 4 and one bit for each of two pages,
// left and right, that is told to be still there while the other was taken away. 7 where there was nothing to
// be done. Where there is a folder "kept", earlier versions and what is typed and not saved are kept in it.

#include "archive/archive_operations.h"
#include "audio/categories_writer.h"
#include "audio/recording.h"
#include "files/data_folder.h"
#include "files/platform.h"
#include "files/replacement.h"
#include "files/safe_write.h"
#include "history/bring_back.h"
#include "history/recovery.h"
#include "history/versions.h"
#include "intake/bring_in.h"
#include "merge/absorb.h"
#include "midi/midi_save.h"
#include "pages/page_files.h"
#include "playlists/playlist_store.h"
#include "songs/edits.h"
#include "stand/archive_check.h"
#include "stand/mend.h"
#include "stand/stand_copy.h"

#include <QCoreApplication>
#include <QDir>

#include <cstring>

using Kind = Result::Kind;

static int done(const Result &result)
{
    return result.ok() ? 0 : 1;
}

// What the next start needs: every file loads or is not there, and every record bears its own number.
static int check()
{
    const ArchiveReading archive = loadArchive();
    Playlists playlists;
    MidiTable midi;
    bool good = archive.irregularRecord == 0 && !archive.endMissing;
    for (const Result &read :
         {archive.result, readCategories(), readPlaylistFile(playlists), readMidiFile(midi)})
        good &= read.ok() || read.kind == Kind::Missing;
    for (const QString &name : QDir("kept").entryList({"unsaved-?.json"}))
        good &= readUnsaved("kept/" + name).has_value();
    for (size_t i = 1; i <= static_cast<size_t>(Module1.recCount); i += 1)
        good &= Module1.recNumber[i] == QString::number(i);
    return good ? 0 : 1;
}

// What every start does before it reads anything.
static int tidy()
{
    (void)finishAppending();
    return 0;
}

// The start of the program, in a folder that may have no archive yet; whoever is asked says Yes.
static int start()
{
    tidy();
    const Result read = loadArchive().result;
    if (!read.ok() && read.kind != Kind::Missing)
        return 1;
    if (Module1.recCount > 0)
        return 0;
    return done(beginArchive().written);
}

static int saveChanged()
{
    Module1.recTitle[1] = "Changed";
    Module1.recCount += 1;
    return done(saveArchive().written); // where reading back fails, the new file stands
}

static int storeLeftPage()
{
    const PageStored stored = storePage(1, Page::Left, "scan.jpg");
    if (!stored.page.ok())
        return 1;
    return stored.emptySheet.ok() ? 0 : 3;
}

static int saveMidiSettings()
{
    MidiTable table;
    const Result read = readMidiFile(table);
    if (!read.ok() && read.kind != Kind::Missing)
        return 1;
    MidiFields fields;
    fields.midiFieldPc.fill("127");
    return saveMidi(table, 1, fields).outcome == MidiSaving::Outcome::Saved ? 0 : 1;
}

// One bit for each file of two new songs: left and right of the first, then of the second, its recording.
static int codeOf(const AppendReport &report)
{
    if (!report.result.ok())
        return 1;
    int code = 0;
    for (const FileTrouble &trouble : report.notMade + report.notPlaced + report.notSetAside) {
        const int page = 2 * (trouble.record - Module1.recCount - 1) + trouble.path.endsWith("R.jpg");
        code |= 32 | 1 << (trouble.path.endsWith(".mp3") ? 4 : page);
    }
    return code;
}

static int absorbTwo()
{
    const MergeSource source = readMergeSource("other");
    return source.archive.result.ok() ? codeOf(absorb(source, {1, 2})) : 1;
}

// A JPEG, a picture that is made into one, a second song with the empty sheet and a recording.
static int bringInTwo()
{
    ComingSong first, second;
    first.title = "First";
    first.left.file = QDir::current().filePath("scans/1.jpg");
    first.right.file = QDir::current().filePath("scans/2.png");
    second.title = "Second";
    second.left = first.left;
    second.recording = QDir::current().filePath("scans/3.mp3");
    return codeOf(bringIn({first, second}, {}));
}

static int saveOnePlaylist()
{
    const QString name = "Playlist 1";
    Playlists playlists;
    if (!openPlaylists(playlists).ok())
        return 1;
    return savePlaylist(playlists, {name, "3,2,1,#", playlists.storedUnder(name)}).isDone ? 0 : 1;
}

// Always at the same time, so that a run can be compared with another one.
static Versions &versions()
{
    static Versions kept("kept/versions", [] { return QDateTime({2026, 11, 23}, {12, 0}, Qt::UTC); });
    return kept;
}

static int bringBackOne(const QString &file)
{
    for (const Version &version : versions().all()) {
        if (version.file == file)
            return done(bringBack(versions(), version));
    }
    return 1;
}

static int takePagesAway()
{
    int left = 0;
    const QList<Result> results = versions().takeAway({pagePath(1, Page::Left), pagePath(1, Page::Right)});
    for (qsizetype i = 0; i < 2; i += 1)
        left |= results[i].ok() ? 0 : 1 << i;
    return left == 0 ? 0 : left == 3 ? 1 : 4 + left;
}

// With a place where what is typed is kept.
static int withTyping(const std::function<int(Edits &edits, Recovery &recovery)> &operation)
{
    int argc = 0;
    const QCoreApplication timers(argc, nullptr);
    Edits edits;
    edits.loaded();
    Recovery recovery("kept", [&edits] { return unsavedNow(edits); });
    recovery.begin();
    return recovery.canKeep() ? operation(edits, recovery) : 1;
}

static int keepTyped()
{
    return withTyping([](Edits &edits, Recovery &recovery) {
        edits.set(Field::Title, {1}, {"Typed"});
        recovery.note();
        return recovery.write() ? 0 : 1;
    });
}

static constexpr int nothingToDo = 7;

// What another program has left is taken over once it is where it belongs; the next start looks again.
static int takeTypedOver(bool (*store)(const QString &left, Edits &edits))
{
    return withTyping([store](Edits &edits, Recovery &recovery) {
        const QStringList all = recovery.leftBehind();
        int code = all.isEmpty() ? nothingToDo : 0;
        for (const QString &left : all) {
            if (!store(left, edits) || !recovery.takeOver(left))
                code = 1;
        }
        return code;
    });
}

static bool putTypedBack(const QString &left, Edits &edits)
{
    const auto unsaved = readUnsaved(left);
    return unsaved && putBack(*unsaved, edits).changedMeanwhile.isEmpty();
}

static bool setTypedAside(const QString &left, Edits &)
{
    QByteArray bytes;
    return readWhole(left, bytes).ok() && versions().keepBytes(unsavedName, bytes);
}

static int renameCategory()
{
    CategoriesReading read = readCategoriesOf(".");
    CategoryNames names = read.table.name;
    names[1] = "Renamed";
    return saveCategories(read, names).outcome == CategoriesSaving::Outcome::Saved ? 0 : 1;
}

// The first that can be mended.
static int mendOne()
{
    for (const Finding &finding : checkWholeArchive().findings) {
        if (finding.mending.kind != Mending::Kind::None)
            return done(mend(finding.mending));
    }
    return nothingToDo;
}

static int carryToStand()
{
    const StandCopy copy = copyToStand("carried");
    return copy.result.ok() && copy.notCopied.isEmpty() ? 0 : 1;
}

struct Operation {
    const char *name;
    bool needsArchive; // loaded before
    int (*run)();
};

static constexpr Operation operations[] = {
    {"check", false, check},
    {"tidy", false, tidy},
    {"start", false, start},
    {"save-archive", true, saveChanged},
    {"export-csv", true, [] { return done(writeCsv()); }},
    {"store-left-page", false, storeLeftPage},
    {"store-recording", false, [] { return done(storeRecording(1, "scan.jpg")); }},
    {"save-midi", false, saveMidiSettings},
    {"absorb", true, absorbTwo},
    {"bring-in", true, bringInTwo},
    {"begin-playlists", false,
     [] {
         Playlists playlists;
         return done(openPlaylists(playlists));
     }},
    {"save-playlist", false, saveOnePlaylist},
    {"keep-typed", true, keepTyped},
    {"put-typed-back", true, [] { return takeTypedOver(putTypedBack); }},
    {"set-typed-aside", true, [] { return takeTypedOver(setTypedAside); }},
    {"bring-back-archive", false, [] { return bringBackOne("archivio.js"); }},
    {"bring-back-page", false, [] { return bringBackOne("1L.jpg"); }},
    {"take-pages-away", false, takePagesAway},
    {"rename-category", false, renameCategory},
    {"mend", false, mendOne},
    {"carry-to-stand", false, carryToStand},
};

int main(int argc, char **argv)
{
    if (argc != 3 || !QDir::setCurrent(QString::fromLocal8Bit(argv[1])))
        return 2;
    if (QDir("kept").exists())
        setReplacementKeeper(
            {[](const QString &path) { versions().keep(path); },
             [](const QString &path, bool wasReplaced) { versions().settle(path, wasReplaced); }});
    for (const Operation &operation : operations) {
        if (std::strcmp(operation.name, argv[2]) == 0)
            return operation.needsArchive && !loadArchive().result.ok() ? 1 : operation.run();
    }
    return 2;
}

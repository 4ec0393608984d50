#include "archive/archive_file.h"
#include "merge/absorb.h"
#include "support/test_folder.h"

#include <QCryptographicHash>
#include <QLockFile>

static const QStringList otherSongs = {"First|X|x y|5", "Second|Y||", "Third|Z|z|99"};
static const QString other = "Ann's (old) stand, é/";

static QByteArray page(const QString &name)
{
    return contents("spartiti/" + name);
}

static QByteArray fingerprintOf(const QByteArray &archive)
{
    return QCryptographicHash::hash(archive, QCryptographicHash::Sha256).toHex();
}

// An archive of two songs here and one of three, all with both pages, in the folder `other`.
static void putBoth()
{
    putArchive({"One|A|tag|3", "Two||rock, slow|"});
    (void)loadArchive();
    put(archivePath(other), archiveOf(otherSongs));
    for (int song = 1; song <= 3; song += 1) {
        put(pagePath(song, Page::Left, other), "L" + QByteArray::number(song));
        put(pagePath(song, Page::Right, other), "R" + QByteArray::number(song));
    }
}

struct Refused {
    QString reason; // how it ends
    std::function<void()> before; // the absorbing
    std::function<void()> meanwhile = {}; // before the last page is made ready; cancelled where there is none
    qint64 room = 1'000'000; // for each file
};

// The archive on the disk, null where it cannot be read, whether there is a note, and what is there then.
using Finishing = std::tuple<QByteArray, bool, QStringList>;

class AbsorbTest : public FolderTest
{
    Q_OBJECT
private slots:
    void absorb_appendsInTheOrderChosenWithThePagesOfTheSourcesNumbers()
    {
        putBoth();
        Module1.recTitle[3] = "typed at the spare position";
        QByteArray odd = archiveOf(otherSongs).replace(linesOf("2"), linesOf("70000"));
        put(archivePath(other), odd.replace(linesOf("1"), linesOf(" 2 ")));
        const QString left = pagePath(3, Page::Left, other);
        QVERIFY(QFile::remove(left) && QDir().mkdir(left));
        QVERIFY(QFile::remove(pagePath(3, Page::Right, other)));
        for (const char *name : {"3R.jpg", "4R.jpg", "4R (old 1).jpg", "5L.jpg"})
            put(QString("spartiti/") + name, name);
        const AbsorbReport report = absorb(readMergeSource(other), {3, 2, 1});
        QVERIFY(report.result.ok());
        QCOMPARE(report.withoutNumber, QList<int>({4}));
        QCOMPARE(Module1.recNumber[4], "4");
        QCOMPARE(
            page("archivio.js"),
            archiveOf({"One|A|tag|3", "Two||rock, slow|0", "Third|Z|z|99", "Second|Y||0", "First|X|x y|5"}));
        QCOMPARE(page("3R (old 1).jpg") + page("4R (old 2).jpg") + page("5L.jpg") + page("5R.jpg"),
                 "3R.jpg4R.jpgL2R2");
        QCOMPARE(namesIn("spartiti").size(), 6);
        const QString told = QDir::fromNativeSeparators(troubleText(report));
        QVERIFY(told.contains("spartiti/3L.jpg: " + QDir::fromNativeSeparators(shownPath(left))
                              + " could not be read ("));
        QVERIFY(told.contains("spartiti/4R.jpg is now spartiti/4R (old 2).jpg"));
        QCOMPARE(told.count(".jpg: "), 1);
    }

    void refused_changesNothing_data()
    {
        const auto nothing = [] {};
        const auto unplug = [] { QDir().rename(other, "unplugged"); };
        const auto swap = [] {
            put(archivePath(other), archiveOf({"Quite|an|other|1", "two|||", "three|||"}));
        };
        const auto writeToo = [] { putArchive({"One|A|tag|3", "Two|by another program||"}); };
        const auto fill = [] {
            Module1.recCount = 9998;
            QVERIFY(checkAppend(1).ok());
        };
        const auto putLargePage = [] { put(pagePath(2, Page::Right, other), QByteArray(9000, 'x')); };
        tableOf<Refused>({{"no room", {"The archive has room for 1 more titles, and 2 are ticked.", fill}},
                          {"source gone", {"/spartiti/archivio.js is no longer there.", unplug}},
                          {"source is swapped", {" has changed since it was listed.", nothing, swap}},
                          {"archive written",
                           {"Another program has just changed spartiti/archivio.js.", nothing, writeToo}},
                          {"cancelled", {"it was cancelled", nothing}},
                          {"no room for the archive", {FullDisk::reason(), nothing, nothing, 130}},
                          {"no room for a page", {FullDisk::reason(), putLargePage, nothing, 8000}}});
    }
    void refused_changesNothing()
    {
        const auto row = tableRow<Refused>();
        putBoth();
        const MergeSource source = readMergeSource(other);
        Module1.recTitle[3] = "typed at the spare position";
        put("spartiti/3R.jpg", "from before");
        row.before();
        const FullDisk disk(row.room);
        QByteArray archive = page("archivio.js");
        const AbsorbReport report = absorb(source, {1, 2}, [&](int done, int all) {
            if (done + 1 == all && row.meanwhile)
                row.meanwhile();
            archive = page("archivio.js");
            return all == 4 && (done + 1 < all || row.meanwhile);
        });
        QCOMPARE(QDir::fromNativeSeparators(report.result.text()).last(row.reason.size()), row.reason);
        QCOMPARE(wasChanged(source), row.reason.endsWith("since it was listed.")); // gone, its list stays
        QCOMPARE(page("archivio.js"), archive);
        QCOMPARE(Module1.recTitle[3] + Module1.recTitle[4], "typed at the spare position");
        QCOMPARE(namesIn("spartiti"), QStringList({"3R.jpg", "archivio.js"}));
    }

    void anotherProgramThatAddsSongs_isNotDisturbed()
    {
        putBoth();
        const MergeSource source = readMergeSource(other);
        put("spartiti/arriving/3L.jpg", "on its way");
        put("spartiti/arriving/note.txt", fingerprintOf(page("archivio.js")) + "\nput 3L\n");
        QLockFile lock("spartiti/arriving/lock");
        QVERIFY(lock.tryLock());
        (void)finishAppending();
        QCOMPARE(absorb(source, {1}).result.text(), "Another program is just adding songs to this archive.");
        QCOMPARE(namesIn("spartiti/arriving"), QStringList({"3L.jpg", "lock", "note.txt"}));
        QFile::remove("spartiti/arriving/note.txt");
        lock.unlock();
        QVERIFY(absorb(source, {1}).result.ok());
        QCOMPARE(namesIn("spartiti"), QStringList({"3L.jpg", "3R.jpg", "archivio.js"}));
        QCOMPARE(page("3L.jpg"), "L1");
    }

    void finishing_goesByTheArchiveOnTheDisk_data()
    {
        const QStringList done = {"3L.jpg", "3R (old 1).jpg", "5R.jpg", "archivio.js", "audio"};
        const QStringList undone = {"3R.jpg", "5R.jpg", "archivio.js"};
        const QByteArray written = archiveOf({"One|||", "Two|||", "Three|||"});
        tableOf<Finishing>({{"written", {written, true, done}},
                            {"not written", {archiveOf({"One|||", "Two|||"}), true, undone}},
                            {"not all ready", {written, false, undone}},
                            {"nobody knows", {{}, true, undone + QStringList("arriving")}}});
    }
    void finishing_goesByTheArchiveOnTheDisk()
    {
        const auto [archive, hasNote, names] = tableRow<Finishing>();
        QVERIFY(QDir().mkpath("spartiti/5R.jpg"));
        if (archive.isNull())
            QVERIFY(QDir().mkdir("spartiti/archivio.js"));
        else
            put("spartiti/archivio.js", archive);
        put("spartiti/3R.jpg", "from before");
        for (const char *name : {"3L.jpg", "audio/3.mp3", "4L.jpg.aB3dE6", "note.txt.aB3dE6"})
            put(QString("spartiti/arriving/") + name, name);
        const QByteArray wanted = archiveOf({"One|||", "Two|||", "Three|||"});
        if (hasNote)
            put("spartiti/arriving/note.txt",
                fingerprintOf(wanted) + "\naside 3R\naside 4R\nput 3L\nput 3\nput 5R\nput ../../x\n");
        const bool isDone = names.contains("audio");
        for (int times = 0; times < 2; times += 1) {
            const QStringList told = troublesOf(finishAppending());
            QCOMPARE(told.join("").count(".jpg"), times == 0 && isDone ? 2 : 0); // "3R.jpg is now ..."
            QCOMPARE(namesIn("spartiti"), names);
        }
        if (isDone)
            QCOMPARE(page("3L.jpg") + page("3R (old 1).jpg") + page("audio/3.mp3"),
                     "3L.jpgfrom beforeaudio/3.mp3");
    }

    void songs_bringWhatIsMadeAndRecordings()
    {
        putBoth();
        put("scan.jpg", "scan");
        for (const char *inTheWay : {"spartiti/3R.jpg", "spartiti/audio/5.mp3"})
            QVERIFY(QDir().mkpath(inTheWay));
        QVERIFY(putLink("audio", "spartiti/3L.jpg"));
        for (const char *recording : {"spartiti/audio/3.mp3", "spartiti/audio/4.mp3"})
            put(recording, "from before");
        const auto made = [](QByteArray &bytes) { return bytes = "made", Result{}; };
        const auto broken = [](QByteArray &) {
            return Result::failed(Result::Kind::Damaged, "a.pdf", "it has no pages");
        };
        const AppendReport report =
            appendSongs({{"Three", "", "", "1", {"scan.jpg"}, {{}, made}, {"gone.mp3"}},
                         {"Four", "", "", "", {{}, broken}, {}, {"scan.jpg"}},
                         {"Five", "", "", "", {}, {}, {"scan.jpg"}}});
        QVERIFY(report.result.ok());
        QCOMPARE(page("3L.jpg") + page("3R.jpg") + page("audio/3.mp3") + page("audio/4.mp3"),
                 "scanmadefrom beforescan");
        QCOMPARE(namesIn("spartiti"),
                 QStringList({"3L.jpg", "3R (old 1).jpg", "3R.jpg", "archivio.js", "audio"}));
        const QString told = QDir::fromNativeSeparators(troublesOf(report).join('\n'));
        QCOMPARE(told.split('\n').filter("spartiti/").join('\n'),
                 "spartiti/audio/3.mp3: gone.mp3 could not be read (there is no such file)\n"
                 "spartiti/4L.jpg: a.pdf could not be read (it has no pages)\n"
                 "spartiti/audio/5.mp3: spartiti/audio/5.mp3 could not be put there (Is a directory)\n"
                 "spartiti/3R.jpg is now spartiti/3R (old 1).jpg");
    }
};

QTEST_GUILESS_MAIN(AbsorbTest)
#include "absorb_test.moc"

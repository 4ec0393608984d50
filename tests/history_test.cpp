// Which versions are kept, and that keeping them harms nothing; what is typed and not saved: how it is kept
// for the next start, and put back.
#include "archive/archive_file.h"
#include "files/data_folder.h"
#include "files/replacement.h"
#include "files/safe_write.h"
#include "history/kept_folder.h"
#include "history/recovery.h"
#include "history/versions.h"
#include "songs/edits.h"
#include "support/test_folder.h"

static const QString archive = "./spartiti/archivio.js", first = "kept/unsaved-1.json";
static constexpr qint64 day = 86400; // seconds

static bool replaceKeeping(Versions &versions, const QString &path, const QByteArray &bytes)
{
    setReplacementKeeper({[&](const QString &file) { versions.keep(file); },
                          [&](const QString &file, bool replaced) { versions.settle(file, replaced); }});
    const bool done = replaceFile(path, bytes).ok();
    setReplacementKeeper({});
    return done && contents(path) == bytes;
}

static QByteArray keptBytes(const Versions &versions)
{
    QByteArrayList bytes;
    for (const Version &version : versions.all())
        bytes += contents(versions.pathOf(version));
    return bytes.join(' ');
}

// The stretch of which only the last of a data file stays: each for itself, a day, or a month.
static QString stretchOf(const QDateTime &time, const QDateTime &now)
{
    const qint64 age = time.secsTo(now);
    return time.toLocalTime().toString(age < day            ? "yyyyMMddhhmmsszzz"
                                           : age < 31 * day ? "yyyyMMdd"
                                                            : "yyyyMM");
}

static Unsaved typed(const QString &title)
{
    return {1, {{1, SongFields{"One", "", "", "0"}, {title, "", "", "0"}}}};
}

// What is done to the file's place beforehand, the folder of the versions, and in how many places the bytes
// of a version then lie.
using Place = std::tuple<std::function<void()>, QString, std::uintmax_t>;
// What is done to the folder of the versions, and whether it can then be written.
using Spoiling = std::pair<std::function<void()>, bool>;
// What was typed and how many songs there were then, the archive at the next start, what is had back, and
// whether it is told that the song has changed.
using Case = std::tuple<UnsavedSong, int, QStringList, QStringList, bool>;

class HistoryTest : public FolderTest
{
    Q_OBJECT
private slots:
    void aYearOfAThousandReplacements_leavesWhatTheRuleSays_data()
    {
        tableOf<std::pair<QString, qint64>>({{"the archive", {archive, 1'000'000}},
                                             {"the archive, and little room", {archive, 1000}},
                                             {"a page", {pagePath(1, Page::Left), 1'000'000}},
                                             {"a recording, and little room", {recordingPath(1), 3000}}});
    }
    void aYearOfAThousandReplacements_leavesWhatTheRuleSays()
    {
        const auto [path, limit] = tableRow<std::pair<QString, qint64>>();
        const bool isData = path == archive;
        QDateTime now = QDateTime({2025, 11, 23}, {0, 0}).toUTC();
        Versions versions("kept", [&now] { return now; },
                          {isData ? limit : 0, isData ? 0 : limit}); // the other kind has no room at all
        put(path, "first");
        QList<QDateTime> times;
        for (int i = 1; i <= 1000; i += 1) {
            now = now.addSecs(i % 2 == 0 ? 60 : 2 * 365 * day / 1000);
            times += now;
            versions.keep(path);
            QVERIFY(QFile::remove(path)); // a safe write would wait for the disk each time
            put(path, QByteArray(100, 'x'));
            versions.settle(path, true);
            QVERIFY(i % 10 > 0 || versions.all().size() * 100 <= limit);
        }
        QList<QDateTime> stay, kept;
        for (qsizetype i = 999; i >= 0 && (stay.size() + 1) * 100 <= limit; i -= 1) {
            const bool isLast = i == 999 || stretchOf(times[i], now) != stretchOf(times[i + 1], now);
            if (isData ? isLast : times[i].secsTo(now) < 90 * day)
                stay += times[i];
        }
        for (const Version &version : versions.all())
            kept += version.until;
        QCOMPARE(kept, stay);
    }

    void eachFile_hasItsDaysForItself()
    {
        const QDateTime now({2026, 11, 23}, {12, 0}, Qt::UTC);
        const QList<Version> two{{now.addDays(-5), "midi.js", 1}, {now.addDays(-5), "generi.js", 1}};
        QCOMPARE(outlived(two, now), {});
    }

    void whatIsReplaced_isKeptWhereverItLies_data()
    {
        const auto link = [](const char *to, const char *name) {
            QVERIFY(putLink(QDir::current().filePath(to), name));
        };
        const QString otherDisk = "/dev/shm/tessaline-" + QString::number(QCoreApplication::applicationPid());
        tableOf<Place>({
            {"on the same disk", {[] {}, "kept", 2}},
            {"on another disk", {[] {}, otherDisk, 1}},
            {"in a folder that is a link",
             {[=] { QDir().mkdir("far"), link("far", "spartiti"); }, "kept", 2}},
            {"as a link to a file",
             {[=] { put("mine.js", ""), QDir().mkdir("spartiti"), link("mine.js", "spartiti/archivio.js"); },
              "kept", 1}},
        });
    }
    void whatIsReplaced_isKeptWhereverItLies()
    {
        const auto [prepare, kept, links] = tableRow<Place>();
        if (kept != "kept" && !QDir("/dev/shm").exists())
            QSKIP("there is no other disk");
        Versions versions(kept);
        prepare();
        put(archive, "old");
        versions.keep(archive);
        QCOMPARE(keptBytes(versions), "old");
        QCOMPARE(std::filesystem::hard_link_count("spartiti/archivio.js"), links);
        versions.settle(archive, false); // only a replacement that succeeds leaves a version
        QCOMPARE(keptBytes(versions), "");
        QVERIFY(replaceKeeping(versions, archive, "new") && replaceKeeping(versions, archive, "newer"));
        QCOMPARE(keptBytes(versions), "new old");
        // What is not the data folder's own is none of its business.
        for (const char *path : {"./other.js", "./spartiti/ARCHIVIO.CSV", "./spartiti/12l.jpg"}) {
            put(path, "x");
            QVERIFY(replaceKeeping(versions, path, "y"));
        }
        QCOMPARE(versions.all().size(), 2);
        // A kill has left a second name of the file: a program that writes in place would change both.
        versions.keep(archive);
        Versions next(kept);
        QVERIFY(replaceKeeping(next, pagePath(1, Page::Left), "page"));
        QVERIFY(replaceKeeping(next, pagePath(1, Page::Left), "other page"));
        QCOMPARE(keptBytes(next).contains("newer"), links == 1);
        QDir(kept).removeRecursively();
    }

    // The file is replaced whatever somebody has done there, and is kept where it can be.
    void aSpoiltFolder_harmsNothing_data()
    {
        tableOf<Spoiling>({
            {"emptied", {[] { QDir("kept").removeRecursively(); }, true}},
            {"a file", {[] { QDir("kept").removeRecursively(), put("kept", ""); }, false}},
            {"rubbish",
             {[] {
                  put("kept/20261301T000000000Z archivio.js", "no such month");
                  put("kept/20260101T000000000Z rubbish.js", "no such file");
                  QDir().mkpath("kept/20260101T000000000Z midi.js");
                  QVERIFY(putPipe("kept/20260101T000000000Z 1L.jpg"));
                  QVERIFY(putLink(QDir::current().filePath("kept"), "kept/20260101T000000000Z 1R.jpg"));
              },
              true}},
        });
    }
    void aSpoiltFolder_harmsNothing()
    {
        const auto [spoil, canBeWritten] = tableRow<Spoiling>();
        QDateTime now = QDateTime::currentDateTimeUtc();
        Versions versions("kept", [&now] { return now; });
        QVERIFY(replaceKeeping(versions, archive, "one") && replaceKeeping(versions, archive, "two"));
        spoil();
        now = now.addSecs(2 * 3600); // all of the folder is looked at again
        QVERIFY(replaceKeeping(versions, archive, "three"));
        QCOMPARE(keptBytes(versions).startsWith("two"), canBeWritten);
        QCOMPARE(versions.takeLast("archivio.js").has_value(), canBeWritten);
    }

    void keptFolder_isKnownAgainWhereverTheDataFolderGoes()
    {
        qputenv("XDG_DATA_HOME", QFile::encodeName(QDir::current().filePath("share")));
        QVERIFY(QDir().mkpath("stand/spartiti") && QDir().mkpath("other/spartiti"));
        QVERIFY(putLink("stand", "link"));
        const QString top = QDir::currentPath();
        const auto keptIn = [&](const QString &name) {
            QDir::setCurrent(top + '/' + name);
            const QString kept = keptFolder();
            QDir::setCurrent(top);
            return kept;
        };
        const QString kept = keptIn("stand");
        put(kept + "/versions/x", "kept");
        QCOMPARE(keptIn("link"), kept);
        QVERIFY(keptIn("other") != kept);
        QVERIFY(QFile::rename("stand", "moved"));
        QCOMPARE(contents(keptIn("moved") + "/versions/x"), "kept");
        QVERIFY(!QFileInfo::exists(kept));
        qputenv("XDG_DATA_HOME", "/proc/nowhere");
        Recovery recovery(keptIn("moved"), [] { return typed("Typed"); });
        recovery.begin();
        recovery.note();
        QVERIFY(!recovery.canKeep() && !recovery.write());
    }

    void aChange_isWrittenSoonAfterTheLastAndNotLongAfterTheFirst()
    {
        QVERIFY(QDir().mkdir("kept"));
        const auto isKept = [] { return QFileInfo::exists(first); };
        Recovery recovery("kept", [] { return typed("Typed"); }, {}, {100, 400});
        recovery.begin();
        QElapsedTimer since;
        since.start();
        while (!isKept() && since.elapsed() < 5000) {
            recovery.note();
            QTest::qWait(20);
        }
        QVERIFY(since.elapsed() >= 300 && since.elapsed() < 2000);
        QCOMPARE(readUnsaved(first), typed("Typed"));
        recovery.forget();
        QVERIFY(!isKept());
    }

    void whatAnotherProgramLeft_isNeverWrittenOver()
    {
        const auto left = bytesOf(typed("Left"));
        put(first, left);
        put("kept/running-1.lock", ""); // killed before it could write its name there
        put("kept/running-2.lock", "999999999\ntessaline\n\n"); // of a program that runs no longer
        Recovery recovery("kept", [] { return typed("Mine"); });
        recovery.begin();
        QVERIFY(recovery.canKeep() && !recovery.isSecond());
        QCOMPARE(recovery.leftBehind(), QStringList{first});
        recovery.note();
        QVERIFY(recovery.write());
        QCOMPARE(contents(first), left);
        QCOMPARE(contents("kept/unsaved-2.json"), bytesOf(typed("Mine")));
        Recovery second("kept", [] { return Unsaved(); });
        second.begin();
        QVERIFY(second.isSecond() && second.canKeep());
        QCOMPARE(second.leftBehind(), QStringList{first});
        QVERIFY(second.takeOver(first));
        QCOMPARE(namesIn("kept").filter("unsaved"), QStringList{"unsaved-2.json"});
    }

    void cutOrGarbledAnywhere_itGivesNothing()
    {
        const Unsaved unsaved{3,
                              {{2, SongFields{"A", "", "", "0"}, {"\u00c9\"\\\n", "", "", "7"}},
                               {3, std::nullopt, {"New", "", "", ""}}}};
        const QByteArray bytes = bytesOf(unsaved);
        QCOMPARE(unsavedOf(bytes), unsaved);
        for (qsizetype i = 0; i < bytes.size(); i += 1) {
            QVERIFY(!unsavedOf(bytes.first(i)));
            for (const char other : {'\0', ' ', '"', static_cast<char>(bytes[i] ^ 1)}) {
                QByteArray garbled = bytes;
                garbled[i] = other;
                QVERIFY(garbled == bytes || !unsavedOf(garbled));
            }
        }
    }

    void puttingBack_changesOnlyWhatIsAsItWas_data()
    {
        const SongFields one{"One", "", "", "0"};
        const UnsavedSong changed{1, one, {"Uno", "Me", "a b", "7"}};
        const UnsavedSong added{2, std::nullopt, {"Two", "", "", ""}};
        tableOf<Case>({
            {"changed", {changed, 1, {"One|||0"}, {"Uno|Me|a b|7", "|||"}, false}},
            {"no category is one", {changed, 1, {"One|||"}, {"Uno|Me|a b|7", "|||"}, false}},
            {"other since", {changed, 1, {"Ein|||0"}, {"Ein|||0", "|||"}, true}},
            {"saved since", {changed, 1, {"Uno|Me|a b|7"}, {"Uno|Me|a b|7", "|||"}, false}},
            {"added", {added, 2, {"One|||0"}, {"One|||0", "Two|||", "|||"}, false}},
            {"typed behind the last", {added, 1, {"One|||0"}, {"One|||0", "Two|||"}, false}},
            {"an empty one there", {added, 2, {"One|||0", "|||0"}, {"One|||0", "Two|||", "|||"}, false}},
            {"another one there", {added, 2, {"One|||0", "Zwei|||0"}, {"One|||0", "Zwei|||0", "|||"}, true}},
            {"the one before gone", {added, 2, {}, {"|||"}, true}},
        });
    }
    void puttingBack_changesOnlyWhatIsAsItWas()
    {
        const auto [song, count, present, then, isTold] = tableRow<Case>();
        putArchive(present);
        (void)loadArchive();
        Edits edits;
        edits.loaded();
        const PutBack put = putBack({count, {song}}, edits);
        QCOMPARE(recordsInMemory(1), then);
        QCOMPARE(put.changedMeanwhile, isTold ? QList{song.record} : QList<int>());
        QCOMPARE(edits.stack().count(), put.records.size()); // no step where nothing was put back
        edits.stack().undo();
        for (qsizetype i = 0; i < Module1.recCount; i += 1)
            QCOMPARE(recordsInMemory()[i].section('|', 0, 0), present.value(i).section('|', 0, 0));
    }
};

QTEST_GUILESS_MAIN(HistoryTest)
#include "history_test.moc"

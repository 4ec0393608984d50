// Which versions are kept, and that keeping them harms nothing.
#include "files/data_folder.h"
#include "files/replacement.h"
#include "files/safe_write.h"
#include "history/kept_folder.h"
#include "history/versions.h"
#include "support/table.h"
#include "support/test_folder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <filesystem>

static const QString archive = "./spartiti/archivio.js";
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

// What was done to the place of the versions or to the file, and in how many places its bytes then lie.
struct Place {
    std::function<void()> prepare;
    std::uintmax_t links = 2;
    QString versions = "kept";
};

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
            now = now.addSecs(365 * day / 1000);
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
            {"on the same disk", {[] {}}},
            {"on another disk", {[] {}, 1, otherDisk}},
            {"in a folder that is a link", {[=] { QDir().mkdir("far"), link("far", "spartiti"); }}},
            {"as a link to a file",
             {[=] { put("mine.js", ""), QDir().mkdir("spartiti"), link("mine.js", "spartiti/archivio.js"); },
              1}},
        });
    }
    void whatIsReplaced_isKeptWhereverItLies()
    {
        const auto row = tableRow<Place>();
        if (row.versions != "kept" && !QDir("/dev/shm").exists())
            QSKIP("there is no other disk");
        Versions versions(row.versions);
        row.prepare();
        put(archive, "old");
        versions.keep(archive);
        QCOMPARE(keptBytes(versions), "old");
        QCOMPARE(std::filesystem::hard_link_count("spartiti/archivio.js"), row.links);
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
        // A kill has left a second name of the present file: a program that writes in place would change
        // both.
        versions.keep(archive);
        Versions next(row.versions);
        QVERIFY(replaceKeeping(next, pagePath(1, Page::Left), "page"));
        QVERIFY(replaceKeeping(next, pagePath(1, Page::Left), "other page"));
        QCOMPARE(keptBytes(next).contains("newer"), row.links == 1);
        QDir(row.versions).removeRecursively();
    }

    // The file is replaced whatever somebody has done there, and is kept where it can be.
    void aSpoiltFolder_harmsNothing_data()
    {
        tableOf<Place>({
            {"emptied", {[] { QDir("kept").removeRecursively(); }}},
            {"a file", {[] { QDir("kept").removeRecursively(), put("kept", ""); }, 0}},
            {"cannot be had", {[] {}, 0, "/proc/versions"}},
            {"rubbish", {[] {
                 for (int i = 0; i < 2000; i += 1)
                     put(QStringLiteral("kept/rubbish %1").arg(i), "x");
                 put("kept/20261301T000000000Z archivio.js", "no such month");
                 put("kept/20260101T000000000Z rubbish.js", "no such file");
                 QDir().mkpath("kept/20260101T000000000Z midi.js");
                 QVERIFY(putPipe("kept/20260101T000000000Z 1L.jpg"));
                 QVERIFY(putLink(QDir::current().filePath("kept"), "kept/20260101T000000000Z 1R.jpg"));
             }}},
        });
    }
    void aSpoiltFolder_harmsNothing()
    {
        const auto row = tableRow<Place>();
        QDateTime now = QDateTime::currentDateTimeUtc();
        Versions versions(row.versions, [&now] { return now; });
        QVERIFY(replaceKeeping(versions, archive, "one") && replaceKeeping(versions, archive, "two"));
        row.prepare();
        now = now.addSecs(2 * 3600); // all of the folder is looked at again
        QVERIFY(replaceKeeping(versions, archive, "three"));
        QCOMPARE(keptBytes(versions).startsWith("two"), row.links > 0);
        QCOMPARE(versions.takeLast("archivio.js").has_value(), row.links > 0);
        now = now.addYears(-3); // somebody set the clock back
        QVERIFY(replaceKeeping(versions, archive, "four"));
        const auto last = versions.takeLast("archivio.js");
        QVERIFY(row.links == 0 || (last && contents(versions.pathOf(*last)) == "three"));
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
        QCOMPARE(keptIn("moved"), QString());
    }
};

QTEST_GUILESS_MAIN(HistoryTest)
#include "history_test.moc"

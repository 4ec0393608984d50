#include "stand/stand_copy.h"
#include "support/table.h"
#include "support/test_folder.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QTest>

#include <functional>

using Change = std::function<void()>;

static const QString own = "spartiti/", there = "stand/spartiti/";

static void putOwn()
{
    putArchive({"One|||0", "Two|||0"});
    put(own + "playlist.js", fileOf("playlist", "\"Set\",\"2,1,#\",\r\n"));
    for (const char *name : {"1L.jpg", "2L.jpg", "2R.jpg", "audio/2.mp3"})
        put(own + name, QByteArray("bytes of ") + name);
    QDir().mkdir("stand");
}

// Copies, and sees before each file that the archive there is not ahead of the pages. Before the second file
// something happens.
static StandCopy copy(const std::function<bool()> &meanwhile = {})
{
    int asked = 0;
    return copyToStand("stand", [&](int, int) {
        if (contents(there + "archivio.js") == contents(own + "archivio.js") && asked < 4)
            qFatal("the archive has come before its pages");
        asked += 1;
        return asked != 2 || !meanwhile || meanwhile();
    });
}

// "1L.jpg 10 5000|2L.jpg 7": name, size and time, with a bar between two files.
static QList<ListedFile> listing(const QString &text)
{
    QList<ListedFile> files;
    for (const QString &file : text.split('|', Qt::SkipEmptyParts)) {
        const QStringList parts = file.split(' ');
        files += {parts[0], parts[1].toInt(), parts.value(2).toInt()};
    }
    return files;
}

struct PlanRow {
    const char *here;
    const char *there;
    bool foldsCase;
    const char *plan; // a letter for the task, and the name
    qint64 room; // in blocks of 10
};

struct Fault {
    Change meanwhile; // none: it is cancelled
    QString told; // a part of it
};

struct Refusal {
    QString root;
    QString told;
    QString garbled = {}; // a file
};

class StandCopyTest : public FolderTest
{
    Q_OBJECT
private slots:
    void plan_tellsWhatIsToBeDone_data()
    {
        tableOf<PlanRow>({
            {"new, data files last",
             {"archivio.js 5|generi.js 5|10L.jpg 11|audio/1.mp3 5|9R.jpg 5|9L.jpg 0", "", false,
              "N9L.jpg N9R.jpg N10L.jpg Naudio/1.mp3 Ngeneri.js Narchivio.js", 60}},
            {"other size or time",
             {"1L.jpg 15|2L.jpg 15 2001", "1L.jpg 5|2L.jpg 15", false, "C1L.jpg C2L.jpg", 50}},
            {"newer there", {"1L.jpg 5 1", "1L.jpg 5 2002", false, "+1L.jpg", 10}},
            {"two seconds",
             {"1L.jpg 5 2000|2L.jpg 5", "1L.jpg 5|2L.jpg 5 2000", false, "S1L.jpg S2L.jpg", 0}},
            {"only there", {"1L.jpg 5", "1L.jpg 5|2L.jpg 5", false, "O2L.jpg S1L.jpg", 0}},
            {"what is on its way", {"1L.jpg.k9ZqT3 5|arriving/2L.jpg 5|1L.jpg 5", "", false, "N1L.jpg", 10}},
            {"no ordinary file", {"1L.jpg -1", "1L.jpg 5", false, "X1L.jpg O1L.jpg", 0}},
            {"case counts", {"1l.jpg 5|1L.jpg 5", "1l.JPG 5", false, "N1L.jpg N1l.jpg O1l.JPG", 20}},
            {"case does not",
             {"1l.jpg 5|1L.jpg 5|2L.jpg 5", "1l.JPG 9|2l.JPG 5", true, "C1L.jpg X1l.jpg S2L.jpg", 10}},
        });
    }

    void plan_tellsWhatIsToBeDone()
    {
        const auto row = tableRow<PlanRow>();
        const QList<PlannedFile> plan = planOf(listing(row.here), listing(row.there), row.foldsCase);
        QStringList tasks;
        for (const PlannedFile &planned : plan)
            tasks +=
                (planned.isNewerThere ? '+' : "NCXOS"[static_cast<int>(planned.task)]) + planned.file.name;
        QCOMPARE(tasks.join(' '), row.plan);
        QCOMPARE(roomNeeded(plan, 10), row.room);
    }

    void copy_bringsAllThere()
    {
        putOwn();
        put(own + "deep/.notes", "more than the archive");
        QFile older(own + "2R.jpg");
        QVERIFY(older.open(QIODevice::ReadWrite));
        QVERIFY(older.setFileTime(QDateTime::currentDateTime().addSecs(-9), QFile::FileModificationTime));
        for (const char *name : {"archivio.js", "1L.jpg", "9L.jpg"})
            put(there + name, "its own");
        put("mine", "mine");
        QVERIFY(putLink("../../mine", there + "2L.jpg"));
        const StandCopy copied = copy();
        QCOMPARE(textOf(copied),
                 "2 songs, 1 playlist: all of it is on the stand, read back and compared. You can take it.");
        QCOMPARE(copied.copied, copied.all);
        QCOMPARE(contents("mine"), "mine");
        QCOMPARE(contents(there + "9L.jpg"), "its own");
        QVERIFY(QFile::remove(there + "9L.jpg"));
        QCOMPARE(filesBelow("stand/spartiti"), filesBelow("spartiti"));
        QCOMPARE(textOf(copy()), "2 songs, 1 playlist: all of it was on the stand already. You can take it.");
        put(own + "1L.jpg", "other page");
        putArchive({"One|||0", "Two|||0", "Three|||0"});
        QVERIFY(copyToStand("stand").result.ok());
        QCOMPARE(filesBelow("stand/spartiti"), filesBelow("spartiti"));
    }

    void whatHappensMeanwhile_leavesAllWholeOrIsTold_data()
    {
        const auto turnByteOver = [] {
            const QString name = there + QDir(there).entryList({"1L.jpg.??????"}).value(0);
            put(name, contents(name).replace("b", "B"));
        };
        const auto changeHere = [] {
            put(own + "1L.jpg", "BYTES of 1L.jpg");
            QFile::remove(own + "2R.jpg");
            putArchive({"One|||0", "Two|||0", "Three|||0"});
            put(own + "3L.jpg", "new");
        };
        tableOf<Fault>({
            {"files here change, go and come",
             {changeHere, "3 songs, 1 playlist: all of it is on the stand"}},
            {"a byte is turned over there",
             {turnByteOver,
              "stand/spartiti/1L.jpg: what was read back is not what was to be written\nNothing on"}},
            {"the stand is taken away",
             {[] { QDir().rename("stand", "away"); }, "stand: the stand is no longer there"}},
            {"cancelled", {{}, "Cancelled. Nothing on the stand has changed."}},
            {"a folder there",
             {[] { QDir().mkdir(there + "2L.jpg"); },
              "there is a folder of this name\n1 of 7 files are on the stand, each of them whole, read back "
              "and compared, and archivio.js, which comes last, is there as it was before."}},
        });
    }

    void whatHappensMeanwhile_leavesAllWholeOrIsTold()
    {
        putOwn();
        put(own + "generi.js", fileOf("generi", {}));
        const auto row = tableRow<Fault>();
        const StandCopy copied = copy([&] {
            if (row.meanwhile)
                row.meanwhile();
            return bool(row.meanwhile);
        });
        QVERIFY2(QDir::fromNativeSeparators(textOf(copied)).contains(row.told), qPrintable(textOf(copied)));
        QDir().rename("away", "stand"); // what was in the way goes
        QDir().rmdir(there + "2L.jpg");
        const bool isWhole = copied.result.ok();
        QCOMPARE(QFile::exists(there + "archivio.js"), isWhole);
        const QStringList may = filesBelow("spartiti") + QStringList("2R.jpg: bytes of 2R.jpg");
        for (const QString &file : filesBelow("stand/spartiti")) // but for what was pulled out half written
            QVERIFY2(may.contains(file) || file.startsWith("1L.jpg."), qPrintable(file));
        QVERIFY(copy().result.ok());
        QVERIFY(filesBelow("stand/spartiti").size() >= filesBelow("spartiti").size());
    }

    void unusable_isSaidBeforeAnything_data()
    {
        tableOf<Refusal>({
            {"no folder", {"gone", "gone: there is no such folder"}},
            {"the archive itself", {".", "This is the archive itself"}},
            {"within it", {"spartiti/audio", "This is the archive itself"}},
            {"damaged archive", {"stand", "spartiti/archivio.js: ", own + "archivio.js"}},
            {"damaged playlists", {"stand", "spartiti/playlist.js: ", own + "playlist.js"}},
            {"no folder of data can be made", {"stand", "stand/spartiti: ", "stand/spartiti"}},
        });
    }
    void unusable_isSaidBeforeAnything()
    {
        putOwn();
        const auto row = tableRow<Refusal>();
        if (!row.garbled.isEmpty())
            put(row.garbled, "x");
        const QStringList before = filesBelow(".");
        const StandCopy copied = copyToStand(row.root);
        QVERIFY2(QDir::fromNativeSeparators(copied.result.text()).startsWith(row.told),
                 qPrintable(copied.result.text()));
        QVERIFY(textOf(copied).endsWith("Nothing on the stand has changed."));
        QCOMPARE(filesBelow("."), before);
    }
};

QTEST_GUILESS_MAIN(StandCopyTest)
#include "stand_copy_test.moc"

#include "stand/stand_copy.h"
#include "support/test_folder.h"

static const QString own = "spartiti/", there = "stand/spartiti/";

static void putOwn()
{
    putArchive({"One|||0", "Two|||0"});
    put(own + "playlist.js", fileOf("playlist", "\"Set\",\"2,1,#\",\r\n"));
    for (const char *name : {"1L.jpg", "2L.jpg", "2R.jpg", "audio/2.mp3"})
        put(own + name, QByteArray("bytes of ") + name);
    QDir().mkdir("stand");
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

// The files here, those there, whether a disk takes capitals for small letters; what is planned, a letter for
// the task before each name, and the room that it needs in blocks of 10.
using Plan = std::tuple<const char *, const char *, bool, const char *, qint64>;
// What happens while it is copied, nothing where it is cancelled then; a part of what is told.
using Fault = std::pair<std::function<void()>, QString>;
// The folder of the stand, the beginning of what is told, a file that is garbled.
using Refusal = std::tuple<QString, QString, QString>;

class StandCopyTest : public FolderTest
{
    Q_OBJECT
private slots:
    void plan_tellsWhatIsToBeDone_data()
    {
        tableOf<Plan>({
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
        const auto [filesHere, filesThere, foldsCase, planned, room] = tableRow<Plan>();
        const QList<PlannedFile> plan = planOf(listing(filesHere), listing(filesThere), foldsCase);
        QStringList tasks;
        for (const PlannedFile &each : plan)
            tasks += (each.isNewerThere ? '+' : "NCXOS"[static_cast<int>(each.task)]) + each.file.name;
        QCOMPARE(tasks.join(' '), planned);
        QCOMPARE(roomNeeded(plan, 10), room);
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
        const StandCopy copied = copyToStand("stand");
        QCOMPARE(textOf(copied),
                 "2 songs, 1 playlist: all of it is on the stand, read back and compared. You can take it.");
        QCOMPARE(contents("mine"), "mine");
        QCOMPARE(contents(there + "9L.jpg"), "its own");
        QVERIFY(QFile::remove(there + "9L.jpg"));
        QCOMPARE(filesBelow("stand/spartiti"), filesBelow("spartiti"));
        QCOMPARE(textOf(copyToStand("stand")),
                 "2 songs, 1 playlist: all of it was on the stand already. You can take it.");
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
        const auto [happens, told] = tableRow<Fault>();
        int asked = 0;
        const StandCopy copied = copyToStand("stand", [&, &meanwhile = happens](int, int) {
            asked += 1;
            if (asked == 2 && meanwhile)
                meanwhile();
            return asked != 2 || meanwhile;
        });
        QVERIFY2(QDir::fromNativeSeparators(textOf(copied)).contains(told), qPrintable(textOf(copied)));
        QDir().rename("away", "stand"); // what was in the way goes
        QDir().rmdir(there + "2L.jpg");
        const bool isWhole = copied.result.ok();
        QCOMPARE(QFile::exists(there + "archivio.js"), isWhole);
        const QStringList may = filesBelow("spartiti") + QStringList("2R.jpg: bytes of 2R.jpg");
        for (const QString &file : filesBelow("stand/spartiti")) // but for what was pulled out half written
            QVERIFY2(may.contains(file) || file.startsWith("1L.jpg."), qPrintable(file));
        QVERIFY(copyToStand("stand").result.ok());
        QVERIFY(filesBelow("stand/spartiti").size() >= filesBelow("spartiti").size());
    }

    void anArchiveThatComesLate_waitsForItsPages()
    {
        putOwn();
        for (int i = 0; i < 500; i += 1) // so many that there is a question while they are listed
            put(there + "its own/" + QString::number(i), {});
        const StandCopy copied = copyToStand("stand", [](int done, int) {
            if (done == 4 && !QFile::exists(own + "3L.jpg")) { // what is here has been listed already
                put(own + "3L.jpg", "new");
                putArchive({"One|||0", "Two|||0", "Three|||0"});
            }
            return !QFile::exists(there + "archivio.js") || QFile::exists(there + "3L.jpg");
        });
        QVERIFY2(copied.result.ok(), qPrintable(textOf(copied)));
        QCOMPARE(contents(there + "archivio.js"), contents(own + "archivio.js"));
    }

    void unusable_isSaidBeforeAnything_data()
    {
        tableOf<Refusal>({
            {"no folder", {"gone", "gone: there is no such folder", {}}},
            {"the archive itself", {".", "This is the archive itself", {}}},
            {"within it", {"spartiti/audio", "This is the archive itself", {}}},
            {"damaged archive", {"stand", "spartiti/archivio.js: ", own + "archivio.js"}},
            {"damaged playlists", {"stand", "spartiti/playlist.js: ", own + "playlist.js"}},
            {"no folder of data can be made", {"stand", "stand/spartiti: ", "stand/spartiti"}},
        });
    }
    void unusable_isSaidBeforeAnything()
    {
        putOwn();
        const auto [root, told, garbled] = tableRow<Refusal>();
        if (!garbled.isEmpty())
            put(garbled, "x");
        const QStringList before = filesBelow(".");
        const StandCopy copied = copyToStand(root);
        QVERIFY2(QDir::fromNativeSeparators(copied.result.text()).startsWith(told),
                 qPrintable(copied.result.text()));
        QCOMPARE(filesBelow("."), before);
    }
};

QTEST_GUILESS_MAIN(StandCopyTest)
#include "stand_copy_test.moc"

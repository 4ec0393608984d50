#include "archive/archive_file.h"
#include "files/safe_write.h"
#include "merge/absorb.h"
#include "support/test_folder.h"

#include <QCryptographicHash>
#include <QDir>
#include <QLockFile>
#include <QTest>

using Act = std::function<void()>;
Q_DECLARE_METATYPE(Act)

static const QStringList otherSongs = {"First|X|x y|5", "Second|Y||", "Third|Z|z|99"};

static const QString other = "Ann's \"old\" stand, é/";

static QByteArray page(const QString &name)
{
    return contents("spartiti/" + name);
}

// An archive of two songs here and one of three, all with both pages, in the folder `other`.
struct TwoInstallations {
    TestFolder folder;

    TwoInstallations()
    {
        putArchive({"One|A|tag|3", "Two||rock, slow|"});
        (void)loadArchive();
        put(archivePath(other), archiveOf(otherSongs));
        for (int song = 1; song <= 3; song += 1) {
            put(pagePath(song, Page::Left, other), "L" + QByteArray::number(song));
            put(pagePath(song, Page::Right, other), "R" + QByteArray::number(song));
        }
    }
};

class AbsorbTest : public QObject
{
    Q_OBJECT
private slots:
    void source_listsItsWholeRecordsAndTellsCuts()
    {
        const TestFolder folder;
        const QByteArray whole = archiveOf(otherSongs);
        QCOMPARE(readMergeSource(other).archive.result.kind, Result::Kind::Missing);
        for (qsizetype size = 0; size <= whole.size(); size += 1) {
            put(archivePath(other), whole.first(size));
            const ArchiveTable read = readMergeSource(other).archive;
            QCOMPARE(read.result.ok(), size > 0);
            QCOMPARE(read.endMissing, size > 0 && size < whole.size() - 2);
            for (int i = 1; i <= read.count(); i += 1)
                QCOMPARE(read.text(read.records[static_cast<size_t>(i)].title),
                         otherSongs[i - 1].section('|', 0, 0));
        }
        put(archivePath(other), archiveOf(QStringList(10'001, "T|||")));
        QCOMPARE(readMergeSource(other).archive.result.kind, Result::Kind::TooLarge);
    }

    void absorb_appendsInTheOrderChosenAndCopiesPages()
    {
        const TwoInstallations both;
        Module1.recTitle[3] = "typed at the spare position";
        const AbsorbReport report = absorb(readMergeSource(other), {2, 3});
        QVERIFY(report.result.ok() && troubleText(report).isEmpty());
        QCOMPARE(page("archivio.js"),
                 archiveOf({"One|A|tag|3", "Two||rock, slow|0", "Second|Y||0", "Third|Z|z|99"}));
        QCOMPARE(page("3L.jpg") + page("3R.jpg") + page("4L.jpg") + page("4R.jpg"), "L2R2L3R3");
        QCOMPARE(namesIn("spartiti"), QStringList({"3L.jpg", "3R.jpg", "4L.jpg", "4R.jpg", "archivio.js"}));
    }

    void pages_goByTheSourcesNumberAndNeverByThoseFromBefore()
    {
        const TwoInstallations both;
        QByteArray odd = archiveOf(otherSongs);
        for (const auto &[number, instead] : {std::pair("1", " 3 "), {"2", "70000"}, {"3", "-8"}})
            odd.replace(linesOf(number), linesOf(instead));
        put(archivePath(other), odd);
        for (const char *name : {"3L.jpg", "4R.jpg", "4R (old 1).jpg", "5L.jpg"})
            put(QString("spartiti/") + name, name);
        const AbsorbReport report = absorb(readMergeSource(other), {1, 2, 3});
        QCOMPARE(report.withoutNumber, QList<int>({4}));
        QCOMPARE(page("3L.jpg") + page("3R.jpg") + page("4R (old 2).jpg") + page("5L (old 1).jpg"),
                 "L3R34R.jpg5L.jpg");
        QCOMPARE(namesIn("spartiti").size(), 6);
        QVERIFY(troubleText(report).contains("spartiti/4R.jpg is now spartiti/4R (old 2).jpg"));
    }

    void pages_thatCannotBeReadAreNamedAndTheOthersCome()
    {
        const TwoInstallations both;
        QVERIFY(QFile::remove(pagePath(1, Page::Right, other)));
        for (const int song : {1, 3}) {
            (void)QFile::remove(pagePath(song, Page::Left, other));
            QVERIFY(QDir().mkdir(pagePath(song, Page::Left, other)));
        }
        const QString text = troubleText(absorb(readMergeSource(other), {1, 2, 3}));
        const QString line =
            "\nspartiti/%1L.jpg: " + shownPath(other) + "/spartiti/%2L.jpg could not be read (";
        QVERIFY(text.contains(line.arg(3).arg(1)));
        QVERIFY(text.contains(line.arg(5).arg(3)));
        QCOMPARE(text.count(".jpg: "), 2);
        QCOMPARE(namesIn("spartiti"), QStringList({"4L.jpg", "4R.jpg", "5R.jpg", "archivio.js"}));
    }

    void refused_changesNothing_data()
    {
        QTest::addColumn<Act>("before");
        QTest::addColumn<Act>("meanwhile"); // while the second page is made ready
        QTest::addColumn<int>("room"); // for each file
        QTest::addColumn<QString>("reason");
        const Act none = [] {};
        const int enough = 1'000'000;
        const Act unplug = [] { QVERIFY(QDir().rename(other, "unplugged")); };
        const Act swap = [] {
            put(archivePath(other), archiveOf({"Quite|an|other|1", "two|||", "three|||"}));
        };
        QTest::addRow("damaged") << Act([] { Module1.archiveRefusal = "It is damaged."; }) << none << enough
                                 << "It is damaged.";
        QTest::addRow("no room") << Act([] { Module1.recCount = 9998; }) << none << enough
                                 << "The archive has room for 1 more titles, and 2 are ticked.";
        QTest::addRow("source gone") << unplug << none << enough
                                     << "/spartiti/archivio.js is no longer there.";
        QTest::addRow("source goes") << none << unplug << enough
                                     << "/spartiti/archivio.js is no longer there.";
        QTest::addRow("source swapped") << swap << none << enough << " has changed since it was listed.";
        QTest::addRow("source is swapped") << none << swap << enough << " has changed since it was listed.";
        QTest::addRow("disk full") << none << none << 20 << "File too large";
        QTest::addRow("no room for a page")
            << Act([] { put(pagePath(2, Page::Right, other), QByteArray(9000, 'x')); }) << none << 8000
            << "File too large";
    }

    void refused_changesNothing()
    {
        QFETCH(Act, before);
        QFETCH(Act, meanwhile);
        QFETCH(int, room);
        QFETCH(QString, reason);
        const TwoInstallations both;
        const MergeSource source = readMergeSource(other);
        const QByteArray archive = page("archivio.js");
        Module1.recTitle[3] = "typed at the spare position";
        put("spartiti/3R.jpg", "from before");
        before();
        const FullDisk disk(static_cast<rlim_t>(room));
        const AbsorbReport report = absorb(source, {1, 2}, [&](int done, int) {
            if (done == 1)
                meanwhile();
            return true;
        });
        QVERIFY2(report.result.text().endsWith(reason), qPrintable(report.result.text()));
        QCOMPARE(page("archivio.js"), archive);
        QCOMPARE(Module1.recTitle[3] + Module1.recTitle[4], "typed at the spare position");
        QCOMPARE(namesIn("spartiti"), QStringList({"3R.jpg", "archivio.js"}));
    }

    void anotherProgram_isNotDisturbed()
    {
        const TwoInstallations both;
        const MergeSource source = readMergeSource(other);
        const QByteArray others = archiveOf({"One|A|tag|3", "Two|by another program||"});
        const AbsorbReport written = absorb(source, {1}, [&](int, int) {
            putArchive({"One|A|tag|3", "Two|by another program||"});
            return true;
        });
        QCOMPARE(written.result.text(), "Another program has just changed spartiti/archivio.js.");
        QCOMPARE(page("archivio.js"), others);

        put("spartiti/arriving/3L.jpg", "on its way");
        QLockFile lock("spartiti/arriving/lock");
        QVERIFY(lock.tryLock());
        (void)finishAppending();
        QCOMPARE(absorb(source, {1}).result.text(), "Another program is just adding songs to this archive.");
        QCOMPARE(namesIn("spartiti/arriving"), QStringList({"3L.jpg", "lock"}));
        lock.unlock();
        QVERIFY(absorb(source, {1}).result.ok());
        QCOMPARE(namesIn("spartiti"), QStringList({"3L.jpg", "3R.jpg", "archivio.js"}));
        QCOMPARE(page("3L.jpg"), "L1");
    }

    void cancelled_atAnyPageChangesNothing()
    {
        for (int last = 0; last < 6; last += 1) {
            const TwoInstallations both;
            const QByteArray archive = page("archivio.js");
            QList<int> asked;
            const AbsorbReport report = absorb(readMergeSource(other), {1, 2, 3}, [&](int done, int all) {
                asked += done;
                return all == 6 && done < last;
            });
            QCOMPARE(report.result.kind, Result::Kind::Cancelled);
            QCOMPARE(asked.size(), last + 1);
            QCOMPARE(asked.last(), last);
            QCOMPARE(page("archivio.js"), archive);
            QCOMPARE(Module1.recTitle[3], "");
            QCOMPARE(namesIn("spartiti"), QStringList("archivio.js"));
        }
    }

    void finishing_goesByTheArchiveOnTheDisk_data()
    {
        QTest::addColumn<QByteArray>("archive"); // null: it cannot be read
        QTest::addColumn<bool>("hasNote");
        QTest::addColumn<QStringList>("names");
        const QStringList undone = {"3R.jpg", "archivio.js"};
        const QByteArray written = archiveOf({"One|||", "Two|||", "Three|||"});
        QTest::addRow("written") << written << true
                                 << QStringList({"3L.jpg", "3R (old 1).jpg", "archivio.js", "audio"});
        QTest::addRow("not written") << archiveOf({"One|||", "Two|||"}) << true << undone;
        QTest::addRow("not all ready") << written << false << undone;
        QTest::addRow("nobody knows")
            << QByteArray() << true << QStringList({"3R.jpg", "archivio.js", "arriving"});
    }

    void finishing_goesByTheArchiveOnTheDisk()
    {
        QFETCH(QByteArray, archive);
        QFETCH(bool, hasNote);
        QFETCH(QStringList, names);
        const TestFolder folder;
        if (archive.isNull())
            QVERIFY(QDir().mkpath("spartiti/archivio.js"));
        else
            put("spartiti/archivio.js", archive);
        put("spartiti/3R.jpg", "from before");
        for (const char *name : {"3L.jpg", "audio/3.mp3", "4L.jpg.aB3dE6"})
            put(QString("spartiti/arriving/") + name, name);
        const QByteArray wanted = archiveOf({"One|||", "Two|||", "Three|||"});
        const QByteArray fingerprint = QCryptographicHash::hash(wanted, QCryptographicHash::Sha256).toHex();
        if (hasNote)
            put("spartiti/arriving/note.txt", fingerprint + "\naside 3R\nput 3L\nput 3\nput ../../x\n");
        for (int times = 0; times < 2; times += 1) {
            const QStringList told = troublesOf(finishAppending());
            QCOMPARE(told.join("").contains("3R.jpg is now"), times == 0 && names.contains("audio"));
            QCOMPARE(namesIn("spartiti"), names);
        }
        if (names.contains("audio"))
            QCOMPARE(page("3L.jpg") + page("3R (old 1).jpg") + page("audio/3.mp3"),
                     "3L.jpgfrom beforeaudio/3.mp3");
    }

    void songs_bringWhatIsMadeAndRecordings()
    {
        const TwoInstallations both;
        put("scan.jpg", "scan");
        QVERIFY(QDir().mkpath("spartiti/3R.jpg")); // in the way
        put("spartiti/audio/4.mp3", "from before");
        const auto made = [](QByteArray &bytes) { return bytes = "made", Result{}; };
        const auto broken = [](QByteArray &) {
            return Result::failed(Result::Kind::Damaged, "a.pdf", "it has no pages");
        };
        const AppendReport report =
            appendSongs({{"Three", "", "", "1", {"scan.jpg"}, {{}, made}, {"gone.mp3"}},
                         {"Four", "", "", "", {{}, broken}, {}, {"scan.jpg"}},
                         {"Five", "", "", "", {}, {}, {}}});
        QVERIFY(report.result.ok());
        QCOMPARE(page("3L.jpg") + page("3R.jpg") + page("audio/4.mp3"), "scanmadescan");
        QCOMPARE(namesIn("spartiti"),
                 QStringList({"3L.jpg", "3R (old 1).jpg", "3R.jpg", "archivio.js", "audio"}));
        QCOMPARE(troublesOf(report),
                 QStringList({"These files of the new songs did not come:\n"
                              "spartiti/audio/3.mp3: gone.mp3 could not be read (there is no such file)\n"
                              "spartiti/4L.jpg: a.pdf could not be read (it has no pages)",
                              "These pages lay there from before under the number of a new song. They do not "
                              "belong to it and were given another name:\n"
                              "spartiti/3R.jpg is now spartiti/3R (old 1).jpg"}));
    }

    void copyFiles_ofMany_needsFewOpenFiles()
    {
        const TestFolder folder;
        QList<FileCopy> copies;
        for (int i = 0; i < 450; i += 1) {
            copies += {QStringLiteral("from/%1").arg(i), QStringLiteral("to/%1").arg(i)};
            put(copies[i].source, QByteArray::number(i));
        }
        QVERIFY(QFile::remove(copies[120].source));
        rlimit before{};
        getrlimit(RLIMIT_NOFILE, &before);
        const rlimit few{160, before.rlim_max};
        setrlimit(RLIMIT_NOFILE, &few);
        const QList<Result> results = copyFiles(copies);
        setrlimit(RLIMIT_NOFILE, &before);
        for (int i = 0; i < 450; i += 1) {
            QCOMPARE(results[i].kind, i == 120 ? Result::Kind::Missing : Result::Kind::Fine);
            QCOMPARE(contents(copies[i].target), contents(copies[i].source));
        }
    }
};

QTEST_GUILESS_MAIN(AbsorbTest)
#include "absorb_test.moc"

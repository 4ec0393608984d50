#include "archive/archive_file.h"
#include "files/safe_write.h"
#include "merge/absorb.h"
#include "support/test_folder.h"

#include <QDir>
#include <QTest>

#include <sys/resource.h>

static const QStringList otherSongs = {"First|X|x y|5", "Second|Y||", "Third|Z|z|99"};

static QByteArray page(const QString &name)
{
    return contents("spartiti/" + name);
}

// An archive of two songs here and one of three, all with both pages, in the folder "other".
struct TwoInstallations {
    TestFolder folder;

    TwoInstallations()
    {
        putArchive({"One|A|tag|3", "Two||rock, slow|"});
        (void)loadArchive();
        put("other/spartiti/archivio.js", archiveOf(otherSongs));
        for (int song = 1; song <= 3; song += 1) {
            put(pagePath(song, Page::Left, "other"), "L" + QByteArray::number(song));
            put(pagePath(song, Page::Right, "other"), "R" + QByteArray::number(song));
        }
    }
};

static AbsorbReport absorbFrom(const QString &folder, const QList<int> &chosen)
{
    return absorb(readMergeSource(folder).source, chosen);
}

class AbsorbTest : public QObject
{
    Q_OBJECT
private slots:
    void source_cutAnywhere_listsItsWholeRecordsAndTells()
    {
        const TestFolder folder;
        const QByteArray whole = archiveOf(otherSongs);
        QCOMPARE(readMergeSource("other").result.kind, Result::Kind::Missing);
        put("other/spartiti/archivio.js", "");
        QCOMPARE(readMergeSource("other").result.kind, Result::Kind::Damaged);
        for (qsizetype size = 1; size <= whole.size(); size += 1) {
            put("other/spartiti/archivio.js", whole.first(size));
            const SourceReading reading = readMergeSource("other");
            QVERIFY(reading.result.ok());
            QCOMPARE(reading.endMissing, size < whole.size() - 2);
            for (int i = 1; i <= reading.source.sourceCount; i += 1)
                QCOMPARE(reading.source.sourceTitle[i], otherSongs[i - 1].section('|', 0, 0));
        }
    }

    void source_holdsNoMoreThan10000()
    {
        const TestFolder folder;
        for (const int records : {10'000, 10'001}) {
            put("other/spartiti/archivio.js", archiveOf(QStringList(records, "T|||")));
            QCOMPARE(readMergeSource("other").source.sourceCount, records % 10'001);
        }
    }

    void absorb_appendsInTheOrderChosenAndCopiesPages()
    {
        const TwoInstallations both;
        Module1.recTitle[1] = "One, edited";
        Module1.recTitle[3] = "typed at the spare position";
        const AbsorbReport report = absorbFrom("other", {2, 3});
        QVERIFY(report.archive.ok());
        QCOMPARE(troubleText(report), QString());
        const QStringList own = {"One, edited|A|tag|3", "Two||rock, slow|0"};
        QCOMPARE(page("archivio.js"), archiveOf(own + QStringList{"Second|Y||0", "Third|Z|z|99"}));
        QCOMPARE(Module1.recCount, 2);
        QCOMPARE(page("3L.jpg") + page("3R.jpg") + page("4L.jpg") + page("4R.jpg"), "L2R2L3R3");
        QCOMPARE(namesIn("spartiti"), QStringList({"3L.jpg", "3R.jpg", "4L.jpg", "4R.jpg", "archivio.js"}));

        QVERIFY(QDir("other").removeRecursively());
        QVERIFY(absorbFrom("other", {}).archive.ok());
        QCOMPARE(page("archivio.js"), archiveOf(own));
    }

    void absorb_intoNothingAndFromTheOwnFolder()
    {
        const TestFolder folder;
        const QString odd = "Ann's \"old\" stand, é/";
        put(odd + "/spartiti/archivio.js", archiveOf({"Only|||"}));
        put(pagePath(1, Page::Right, odd), "right");
        QCOMPARE(troubleText(absorbFrom(odd, {1})), QString());
        QVERIFY(loadArchive().result.ok());
        QCOMPARE(troubleText(absorbFrom(".", {1})), QString());
        QCOMPARE(namesIn("spartiti"), QStringList({"1R.jpg", "2R.jpg", "archivio.js"}));
        QCOMPARE(page("archivio.js"), archiveOf({"Only|||0", "Only|||0"}));
    }

    void pages_goByTheSourcesNumberAndNeverByThoseFromBefore()
    {
        const TwoInstallations both;
        MergeSource source = readMergeSource("other").source;
        source.sourceNumber = QStringList{"", " 3 ", "70000", "-8"};
        for (const char *name : {"3L.jpg", "4R.jpg", "4R (old 1).jpg", "5L.jpg"})
            put(QString("spartiti/") + name, name);
        const AbsorbReport report = absorb(source, {1, 2, 3});
        QCOMPARE(report.withoutNumber, QList<int>({4}));
        QVERIFY(report.notCopied.isEmpty());
        QCOMPARE(page("3L.jpg") + page("3R.jpg"), "L3R3");
        QCOMPARE(page("4R (old 2).jpg") + page("5L (old 1).jpg"), "4R.jpg5L.jpg");
        QCOMPARE(namesIn("spartiti").size(), 6);
        QVERIFY(troubleText(report).contains("spartiti/4R.jpg is now spartiti/4R (old 2).jpg"));
    }

    void pages_thatFailAreNamedAndTheOthersCome()
    {
        const TwoInstallations both;
        QFile::remove("other/spartiti/1L.jpg");
        QDir().mkpath("other/spartiti/1L.jpg");
        QFile::remove("other/spartiti/1R.jpg");
        put("other/spartiti/2R.jpg", QByteArray(100'000, 'x'));
        put("other/spartiti/3L.jpg", QByteArray(100'000, 'x'));
        const FullDisk disk(50'000);
        const QString text = troubleText(absorbFrom("other", {1, 2, 3}));
        QVERIFY(text.contains("spartiti/3L.jpg: the page of the source could not be read ("));
        QVERIFY(text.contains("spartiti/4R.jpg to spartiti/5L.jpg: it could not be written ("));
        QCOMPARE(namesIn("spartiti"), QStringList({"4L.jpg", "5R.jpg", "archivio.js"}));

        AbsorbReport many; // whose text still has to fit on the screen
        for (int record = 1; record <= 2000; record += 2)
            many.notCopied += {record, Page::Left, "reason"};
        QVERIFY(troubleText(many).count('\n') == 12 && troubleText(many).endsWith("and 989 more"));
    }

    void refused_changesNothing()
    {
        const std::initializer_list<void (*)()> obstacles = {
            [] { Module1.archiveRefusal = "It is damaged."; },
            [] { Module1.recCount = Module1State::lastRecord - 1; },
            [] { QVERIFY(QDir().rename("other", "unplugged")); }, [] {}, // the disk is full
        };
        for (const auto obstacle : obstacles) {
            const TwoInstallations both;
            const MergeSource source = readMergeSource("other").source;
            const QByteArray before = page("archivio.js");
            Module1.recTitle[3] = "typed at the spare position";
            obstacle();
            const FullDisk disk(20);
            QVERIFY(!absorb(source, {1, 2}).archive.ok());
            QCOMPARE(page("archivio.js"), before);
            QCOMPARE(Module1.recTitle[3] + Module1.recTitle[4], "typed at the spare position");
            QCOMPARE(namesIn("spartiti"), QStringList("archivio.js"));
        }
    }

    void copyFiles_ofMany_needsFewOpenFiles()
    {
        const TestFolder folder;
        QList<FileCopy> copies;
        for (int i = 0; i < 450; i += 1) {
            copies += {QStringLiteral("from/%1").arg(i), QStringLiteral("to/%1").arg(i)};
            if (i != 120)
                put(copies[i].source, QByteArray::number(i));
        }
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
        QCOMPARE(namesIn("to").size(), 449);
    }
};

QTEST_GUILESS_MAIN(AbsorbTest)
#include "absorb_test.moc"

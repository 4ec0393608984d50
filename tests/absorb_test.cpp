#include "archive/archive_file.h"
#include "files/safe_write.h"
#include "merge/absorb.h"
#include "support/test_folder.h"

#include <QDir>
#include <QTest>

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

    void refused_changesNothing()
    {
        const std::initializer_list<void (*)()> obstacles = {
            [] { Module1.archiveRefusal = "It is damaged."; },
            [] { Module1.recCount = Module1State::lastRecord - 1; },
            [] { QVERIFY(QDir().rename(other, "unplugged")); },
            nullptr, // the disk is full
        };
        for (const auto obstacle : obstacles) {
            const TwoInstallations both;
            const MergeSource source = readMergeSource(other);
            const QByteArray before = page("archivio.js");
            Module1.recTitle[3] = "typed at the spare position";
            if (obstacle)
                obstacle();
            const FullDisk disk(obstacle ? 1'000'000 : 20);
            QVERIFY(!absorb(source, {1, 2}).result.ok());
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

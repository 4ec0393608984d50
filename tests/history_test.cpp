#include "files/data_folder.h"
#include "history/kept_folder.h"
#include "history/versions.h"
#include "support/test_folder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTest>

#include <sys/stat.h>

static const QString archive = "./spartiti/archivio.js";

static QDateTime at(int year, int month, int day, int hour = 12)
{
    return QDateTime({year, month, day}, {hour, 0}).toUTC();
}

static qint64 sizeOf(const QList<Version> &versions, Version::Kind kind)
{
    qint64 size = 0;
    for (const Version &version : versions)
        size += version.kind() == kind ? version.size : 0;
    return size;
}

// Replaces a file as a safe write does: another file takes its name.
static void replace(Versions &versions, const QString &path, const QByteArray &bytes)
{
    versions.keep(path);
    put("new", bytes);
    QDir().mkpath(QFileInfo(path).path());
    QFile::remove(path);
    QVERIFY(QFile::rename("new", path));
    versions.settle(path, true);
}

static QByteArrayList keptBytes(const Versions &versions)
{
    QByteArrayList bytes;
    for (const Version &version : versions.all())
        bytes += contents(versions.pathOf(version));
    return bytes;
}

class HistoryTest : public QObject
{
    Q_OBJECT
private slots:
    void init() { qputenv("XDG_DATA_HOME", ""); }

    void rule_saysWhatStays_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QDateTime>("earlier");
        QTest::addColumn<QDateTime>("later");
        QTest::addColumn<bool>("bothStay");
        // now is noon of the 23rd of November
        QTest::addRow("two of today") << "archivio.js" << at(2026, 11, 23, 8) << at(2026, 11, 23, 9) << true;
        QTest::addRow("two of a day ago")
            << "archivio.js" << at(2026, 11, 21, 8) << at(2026, 11, 21, 9) << false;
        QTest::addRow("one each of two days") << "midi.js" << at(2026, 11, 20) << at(2026, 11, 21) << true;
        QTest::addRow("two days of a month ago") << "midi.js" << at(2026, 9, 20) << at(2026, 9, 21) << false;
        QTest::addRow("same month of two years") << "generi.js" << at(2024, 9, 20) << at(2025, 9, 20) << true;
        QTest::addRow("pages of one day") << "1L.jpg" << at(2026, 9, 20, 8) << at(2026, 9, 20, 9) << true;
        QTest::addRow("a page of 91 days") << "1L.jpg" << at(2026, 8, 24) << at(2026, 11, 20) << false;
        QTest::addRow("a recording of 91 days")
            << "audio/1.mp3" << at(2026, 8, 24) << at(2026, 11, 20) << false;
    }
    void rule_saysWhatStays()
    {
        QFETCH(QString, file);
        QFETCH(QDateTime, earlier);
        QFETCH(QDateTime, later);
        QFETCH(bool, bothStay);
        const QList<Version> versions{{earlier, file, 1}, {later, file, 1}};
        const QList<Version> gone = outlived(versions, at(2026, 11, 23));
        QCOMPARE(gone, bothStay ? QList<Version>() : versions.first(1));
        // Each file has its days for itself.
        const QString other = file == "archivio.js" ? "midi.js" : "archivio.js";
        QVERIFY(
            !outlived({{earlier, other, 1}, {later, file, 1}}, at(2026, 11, 23)).contains({earlier, other, 1})
            || bothStay);
    }

    void aYearOfSaves_leavesWhatTheRuleSays()
    {
        const TestFolder folder;
        QDateTime now = at(2025, 11, 23, 0);
        Versions versions("kept", [&now] { return now; });
        put(archive, "0");
        for (int i = 1; i <= 1000; i += 1) {
            now = now.addSecs(365 * 86400 / 1000);
            replace(versions, archive, QByteArray::number(i));
        }
        now = now.addSecs(3601);
        replace(versions, archive, "last");
        const QList<Version> all = versions.all();
        // 3 a day for the last day, one for each of the 30 days before, one for each month before.
        QCOMPARE(outlived(all, now), {});
        QVERIFY2(all.size() >= 40 && all.size() <= 48, qPrintable(QString::number(all.size())));
        QCOMPARE(contents(versions.pathOf(all.first())), "1000");
    }

    void limits_areNeverPassed()
    {
        const TestFolder folder;
        QDateTime now = at(2026, 1, 1);
        Versions versions("kept", [&now] { return now; }, {1000, 3000});
        for (int i = 0; i < 50; i += 1) {
            now = now.addSecs(60);
            for (const QString &path : {archive, pagePath(1, Page::Left)}) {
                replace(versions, path, QByteArray(90 + i, static_cast<char>('a' + i % 26)));
                QVERIFY(sizeOf(versions.all(), Version::Kind::Data) <= 1000);
                QVERIFY(sizeOf(versions.all(), Version::Kind::Score) <= 3000);
            }
        }
        QVERIFY(sizeOf(versions.all(), Version::Kind::Data) > 800);
        QVERIFY(sizeOf(versions.all(), Version::Kind::Score) > 2800);
    }

    void keeping_isALinkThatOnlyStaysWithAReplacement()
    {
        const TestFolder folder;
        Versions versions("kept");
        put(archive, "old");
        versions.keep(archive);
        QCOMPARE(keptBytes(versions), QByteArrayList{"old"});
        struct stat status {
        };
        QCOMPARE(stat("spartiti/archivio.js", &status), 0);
        QCOMPARE(status.st_nlink, nlink_t{2});
        versions.settle(archive, false);
        QCOMPARE(keptBytes(versions), QByteArrayList());
        replace(versions, archive, "new");
        replace(versions, archive, "newer");
        QCOMPARE(keptBytes(versions), (QByteArrayList{"new", "old"}));
        // What is not the data folder's own is none of its business.
        for (const char *path : {"./other.js", "./spartiti/ARCHIVIO.CSV", "./spartiti/12l.jpg"}) {
            put(path, "x");
            versions.keep(path);
            versions.settle(path, true);
        }
        QCOMPARE(versions.all().size(), 2);
    }

    void keeping_aLinkedPageTakesItsBytes()
    {
        const TestFolder folder;
        Versions versions("kept");
        put("mine.jpg", "mine");
        QDir().mkpath("spartiti");
        QVERIFY(QFile::link(QDir::current().filePath("mine.jpg"), "spartiti/1R.jpg"));
        versions.keep(pagePath(1, Page::Right));
        versions.settle(pagePath(1, Page::Right), true);
        put("mine.jpg", "changed");
        QCOMPARE(keptBytes(versions), QByteArrayList{"mine"});
    }

    void aSpoiltFolder_harmsNothing()
    {
        const TestFolder folder;
        Versions versions("kept");
        put(archive, "one");
        put("kept/rubbish", "x");
        put("kept/20261301T000000000Z archivio.js", "no such month");
        QDir().mkpath("kept/20260101T000000000Z midi.js");
        replace(versions, archive, "two");
        QCOMPARE(versions.all().size(), 1);
        QDir("kept").removeRecursively();
        replace(versions, archive, "three");
        QCOMPARE(keptBytes(versions), QByteArrayList{"two"});
        QDir("kept").removeRecursively();
        put("kept", "a file where the folder was");
        versions.keep(archive);
        versions.settle(archive, true);
        QCOMPARE(contents(archive), "three");
        QCOMPARE(versions.all(), {});
    }

    void keptFolder_isKnownAgainWhereverTheDataFolderGoes()
    {
        const TestFolder folder;
        qputenv("XDG_DATA_HOME", QFile::encodeName(QDir::current().filePath("share")));
        QVERIFY(QDir().mkpath("stand/spartiti") && QDir().mkpath("other/spartiti"));
        QVERIFY(QFile::link("stand", "link"));
        QStringList found;
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

#include "files/code_page.h"
#include "files/data_folder.h"
#include "files/safe_write.h"
#include "support/test_folder.h"

#include <QDir>
#include <QFile>
#include <QTest>

using Kind = Result::Kind;

class FilesTest : public QObject
{
    Q_OBJECT
private slots:
    void codePage_everyByteSurvives()
    {
        QByteArray all;
        for (int byte = 0; byte < 256; byte += 1)
            all += static_cast<char>(byte);
        QCOMPARE(toCodePage(fromCodePage(all)), all);
        QCOMPARE(fromCodePage("\x80\x81\x8A\xE9\xFF"), QStringLiteral("€\u0081Šéÿ"));
        QVERIFY(isInCodePage(u'œ') && !isInCodePage(u'ő') && !isInCodePage(u'\u0080'));
        QCOMPARE(toCodePage(u"ő→x"), QByteArray("??x"));
    }

    void paths_areThoseOfTheViewer()
    {
        QCOMPARE(pagePath(7, Page::Left), "./spartiti/7L.jpg");
        QCOMPARE(pagePath(9999, Page::Right, "/media/a 'stick'/"), "/media/a 'stick'//spartiti/9999R.jpg");
        QCOMPARE(recordingPath(12), "./spartiti/audio/12.mp3");
        QCOMPARE(shownPath(archivePath()), "spartiti/archivio.js");
        QCOMPARE(archivePath("/"), "//spartiti/archivio.js");
    }

    void replaceFile_isOldOrNew_data()
    {
        QTest::addColumn<qint64>("room");
        QTest::addColumn<bool>("written");
        QTest::newRow("room enough") << qint64{1'000'000} << true;
        QTest::newRow("no room at all") << qint64{0} << false;
        QTest::newRow("full in the middle") << qint64{40'000} << false;
        QTest::newRow("full before the last byte") << qint64{99'999} << false;
    }

    void replaceFile_isOldOrNew()
    {
        QFETCH(qint64, room);
        QFETCH(bool, written);
        TestFolder folder;
        put("spartiti/a.js", "old");
        const QByteArray bytes(100'000, 'n');
        Result result;
        {
            FullDisk disk(room);
            result = replaceFile("./spartiti/a.js", bytes);
        }
        QCOMPARE(result.ok(), written);
        QCOMPARE(contents("spartiti/a.js"), written ? bytes : QByteArray("old"));
        QCOMPARE(namesIn("spartiti"), QStringList{"a.js"});
        if (!written)
            QCOMPARE(result.text(), "spartiti/a.js: File too large");
    }

    void replaceFile_makesItsFolderAndSparesOthers()
    {
        TestFolder folder;
        QVERIFY(replaceFile("./spartiti/audio/a.mp3", "x").ok());
        QCOMPARE(contents("spartiti/audio/a.mp3"), "x");
        QVERIFY(QDir().mkdir("folder"));
        QCOMPARE(replaceFile("folder", "x").kind, Kind::Unwritable);
        QCOMPARE(replaceFile("spartiti/audio/a.mp3/b", "x").kind, Kind::Unwritable);
        QVERIFY(QFile::link("spartiti/audio/a.mp3", "link"));
        QVERIFY(replaceFile("link", "y").ok());
        QCOMPARE(contents("spartiti/audio/a.mp3"), "y");
    }

    void copyFile_copiesEveryByte()
    {
        TestFolder folder;
        const QByteArray bytes = QByteArray(3'000'000, 'x') + QByteArray("\0\r\n\x1A", 4);
        put("scans/à l'ami \"1\".jpg", bytes);
        QVERIFY(QFile::link(folder.path() + "/scans/à l'ami \"1\".jpg", "link.jpg"));
        QVERIFY(copyFile("link.jpg", pagePath(3, Page::Left)).ok());
        QCOMPARE(contents("spartiti/3L.jpg"), bytes);
        QVERIFY(copyFile("spartiti/3L.jpg", pagePath(3, Page::Left)).ok());
        QVERIFY(copyFile("link.jpg", "scans/à l'ami \"1\".jpg").ok());
        QCOMPARE(contents("scans/à l'ami \"1\".jpg"), bytes);
    }

    void copyFile_failingLeavesTheTarget_data()
    {
        QTest::addColumn<QString>("source");
        QTest::addColumn<qint64>("room");
        QTest::addColumn<int>("kind");
        const qint64 plenty = 1'000'000'000;
        QTest::newRow("no source") << "gone.jpg" << plenty << int(Kind::Missing);
        QTest::newRow("dangling link") << "dangling" << plenty << int(Kind::Missing);
        QTest::newRow("a folder") << "scans" << plenty << int(Kind::Unreadable);
        QTest::newRow("nothing chosen") << "" << plenty << int(Kind::Missing);
        QTest::newRow("disk full") << "scans/a.jpg" << qint64{1'500'000} << int(Kind::Unwritable);
    }

    void copyFile_failingLeavesTheTarget()
    {
        QFETCH(QString, source);
        QFETCH(qint64, room);
        TestFolder folder;
        put("scans/a.jpg", QByteArray(2'000'000, 'x'));
        put("spartiti/1L.jpg", "old");
        QVERIFY(QFile::link("nowhere", "dangling"));
        Result result;
        {
            FullDisk disk(room);
            result = copyFile(source, pagePath(1, Page::Left));
        }
        QTEST(int(result.kind), "kind");
        QVERIFY(!result.reason.isEmpty());
        QCOMPARE(contents("spartiti/1L.jpg"), "old");
        QCOMPARE(namesIn("spartiti"), QStringList{"1L.jpg"});
    }
};

QTEST_APPLESS_MAIN(FilesTest)
#include "files_test.moc"

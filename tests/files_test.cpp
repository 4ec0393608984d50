#include "files/data_folder.h"
#include "files/safe_write.h"
#include "support/test_folder.h"

#include <QDir>
#include <QFile>
#include <QTest>

using Kind = Result::Kind;

static constexpr rlim_t plenty = 1'000'000'000;

class FilesTest : public QObject
{
    Q_OBJECT
private slots:
    void replaceFile_isOldOrNew()
    {
        const QByteArray bytes(100'000, 'n');
        for (const rlim_t room : {plenty, rlim_t{0}, rlim_t{40'000}, rlim_t{99'999}}) {
            const TestFolder folder;
            put("spartiti/a.js", "old");
            const FullDisk disk(room);
            QCOMPARE(replaceFile("./spartiti/a.js", bytes).reason, room == plenty ? "" : "File too large");
            QCOMPARE(contents("spartiti/a.js"), room == plenty ? bytes : QByteArray("old"));
            QCOMPARE(namesIn("spartiti"), QStringList("a.js"));
        }
    }

    void copyFile_copiesEveryByteOrLeavesTheTarget()
    {
        const QByteArray bytes = QByteArray(2'000'000, 'x') + QByteArray("\0\r\n\x1A", 4);
        const QString odd = "scans/à l'ami \"1\".jpg", target = pagePath(1, Page::Left);
        const std::tuple<QString, rlim_t, Kind> rows[] = {
            {odd, plenty, Kind::Fine},           {"link", plenty, Kind::Fine},
            {target, plenty, Kind::Fine},        {"gone.jpg", plenty, Kind::Missing},
            {"dangling", plenty, Kind::Missing}, {"scans", plenty, Kind::Unreadable},
            {"", plenty, Kind::Missing},         {odd, 1'500'000, Kind::Unwritable},
        };
        for (const auto &[source, room, kind] : rows) {
            const TestFolder folder;
            put(odd, bytes);
            put(target, "old");
            QVERIFY(QFile::link("nowhere", "dangling") && QFile::link(odd, "link"));
            const FullDisk disk(room);
            const Result result = copyFile(source, target);
            QCOMPARE(result.kind, kind);
            QCOMPARE(contents(target), result.ok() && source != target ? bytes : QByteArray("old"));
            QCOMPARE(namesIn("spartiti"), QStringList("1L.jpg"));
            QCOMPARE(contents(odd), bytes);
        }
    }

    void moveFile_isWholeAndNeverOverSomething_data()
    {
        QTest::addColumn<QString>("source");
        QTest::addColumn<QString>("target");
        QTest::addColumn<Kind>("kind");
        QTest::addRow("beside it") << "a"
                                   << "b" << Kind::Fine;
        QTest::addRow("into a new folder") << "a"
                                           << "new/b" << Kind::Fine;
        QTest::addRow("a link, not what it points to") << "link"
                                                       << "b" << Kind::Fine;
        QTest::addRow("what is not there") << "gone"
                                           << "b" << Kind::Missing;
        QTest::addRow("over a file") << "a"
                                     << "other" << Kind::Unwritable;
        QTest::addRow("over itself") << "a"
                                     << "a" << Kind::Unwritable;
        QTest::addRow("over a folder") << "a"
                                       << "folder" << Kind::Unwritable;
        QTest::addRow("over a link to nothing") << "a"
                                                << "link" << Kind::Unwritable;
        QTest::addRow("below a file") << "a"
                                      << "other/b" << Kind::Unwritable;
    }

    void moveFile_isWholeAndNeverOverSomething()
    {
        QFETCH(QString, source);
        QFETCH(QString, target);
        QFETCH(Kind, kind);
        const TestFolder folder;
        put("a", "bytes");
        put("other", "stays");
        QVERIFY(QDir().mkdir("folder") && QFile::link("nowhere", "link"));
        QStringList names = namesIn(".");
        QCOMPARE(moveFile(source, target).kind, kind);
        if (kind == Kind::Fine) {
            names.removeOne(source);
            names += target.section('/', 0, 0);
            names.sort();
        }
        QCOMPARE(namesIn("."), names);
        QCOMPARE(contents(kind == Kind::Fine && source == "a" ? target : "a"), "bytes");
        QCOMPARE(contents("other"), "stays");
    }
};

QTEST_APPLESS_MAIN(FilesTest)
#include "files_test.moc"

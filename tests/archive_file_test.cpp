#include "archive/archive_file.h"
#include "archive/archive_table.h"
#include "format/code_page.h"
#include "support/test_folder.h"

#include <QFile>
#include <QTest>

using Kind = Result::Kind;

static const QString path = "spartiti/archivio.js";
static const QStringList threeRecords = {"A song|An author|two tags|0", "Für Elise, so gut||  |3", "|B||33"};

static QStringList recordsInMemory()
{
    QStringList records;
    for (size_t i = 1; i <= static_cast<size_t>(Module1.recCount); i += 1) {
        records += Module1.recTitle[i] + '|' + Module1.recAuthor[i] + '|' + Module1.recTags[i] + '|'
            + Module1.recCategory[i];
    }
    return records;
}

static ArchiveReading readingOf(const QByteArray &file)
{
    Module1 = {};
    put(path, file);
    return loadArchive();
}

class ArchiveFileTest : public QObject
{
    Q_OBJECT
private slots:
    void readArchive_countsByItsRule_data()
    {
        QTest::addColumn<int>("tokens");
        QTest::addColumn<int>("own"); // records of one's own archive; -1 where it is not read
        QTest::addColumn<int>("other"); // of another stand's
        const int rows[][3] = {{0, -1, -1},
                               {1, -1, 0},
                               {2, 0, 0},
                               {7, 0, 0},
                               {8, -1, 0},
                               {10, -1, 0},
                               {11, 1, 0},
                               {16, 1, 1},
                               {17, -1, 1},
                               {22, 2, 2},
                               {27, 2, 2},
                               {28, -1, 2},
                               {99'992, 9999, 9999},
                               {99'996, 9999, 9999},
                               {100'002, -1, 10'000},
                               {100'011, -1, 10'000},
                               {100'012, -1, -1},
                               {100'100, -1, -1}};
        for (const auto &[tokens, own, other] : rows)
            QTest::addRow("%d tokens", tokens) << tokens << own << other;
    }

    void readArchive_countsByItsRule()
    {
        QFETCH(int, tokens);
        QFETCH(int, own);
        QFETCH(int, other);
        const QByteArray file =
            QByteArray("];\r\n").repeated(qMin(tokens, 2)) + QByteArray("\r\n").repeated(tokens - 2);
        for (const auto &[rule, count] : {std::pair(ownArchive, own), {otherArchive, other}}) {
            const ArchiveTable table = readArchive(file, rule);
            QCOMPARE(table.result.ok(), count >= 0);
            QCOMPARE(table.count(), qMax(count, 0));
        }
    }

    void readArchive_tellsWhatIsNotAsWritten_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<int>("irregular");
        QTest::addColumn<bool>("endMissing");
        const QByteArray whole = archiveOf(threeRecords), end = " ];\r\n";
        const auto with = [&](const char *before, const char *after) {
            return QByteArray(whole).replace(before, after);
        };
        QTest::addRow("as written") << whole << 0 << false;
        QTest::addRow("blank lines behind it") << whole + "\r\n\n" << 0 << false;
        QTest::addRow("other line ends") << with("\r\n", "\n") << 0 << false;
        QTest::addRow("no closing line") << whole.chopped(5) << 0 << true;
        QTest::addRow("another closing line") << with(" ];", "]") << 0 << true;
        QTest::addRow("more behind it") << whole + "x,y" << 0 << true;
        QTest::addRow("more behind a field") << with("\"3\",\r\n", "\"3\",x\r\n") << 2 << false;
        QTest::addRow("a field without quotes") << with("\"33\"", "33") << 0 << false;
    }

    void readArchive_tellsWhatIsNotAsWritten()
    {
        QFETCH(QByteArray, file);
        QFETCH(int, irregular);
        QFETCH(bool, endMissing);
        const ArchiveTable table = readArchive(file, ownArchive);
        QCOMPARE(table.count(), 3);
        QCOMPARE(table.irregularRecord, irregular);
        QCOMPARE(table.endMissing, endMissing);
        for (int n = 1; n <= 3; n += 1)
            QVERIFY(file.sliced(table.records[static_cast<size_t>(n)].place)
                        .startsWith('"' + QByteArray::number(n)));
    }

    void unviewableRecords_areThoseThatStopTheViewer_data()
    {
        QTest::addColumn<QStringList>("records");
        QTest::addColumn<QList<int>>("unviewable");
        QTest::addRow("none") << QStringList{"AC/DC|b|c|1", "'|,|x|2"} << QList<int>();
        QTest::addRow("title") << QStringList{"a|b|c|1", "AC\\DC|b|c|2"} << QList<int>{2};
        QTest::addRow("author") << QStringList{"a|b\r\nb|c|1", "a|b|c|2"} << QList<int>{1};
        QTest::addRow("tags") << QStringList{"a|b|c\n|1", "a|b|\r|2"} << QList<int>{1, 2};
        QTest::addRow("category") << QStringList{"a|b|c|\\"} << QList<int>();
    }

    void unviewableRecords_areThoseThatStopTheViewer()
    {
        QFETCH(QStringList, records);
        QFETCH(QList<int>, unviewable);
        const TestFolder folder;
        QCOMPARE(readingOf(archiveOf(records)).unviewable, unviewable);
    }

    void roundTrip_isByteIdentical_data()
    {
        QTest::addColumn<QStringList>("records");
        const QString any = fromCodePage(everyByte()).remove('|');
        QTest::addRow("three records") << threeRecords;
        QTest::addRow("none") << QStringList();
        QTest::addRow("as many as there can be") << QStringList(9999, "Title|Author|tags|1");
        QTest::addRow("every byte in every field") << QStringList(any + "|" + any + "|" + any + "|7");
    }

    void roundTrip_isByteIdentical()
    {
        QFETCH(QStringList, records);
        const TestFolder folder;
        QVERIFY(readingOf(archiveOf(records)).result.ok());
        QCOMPARE(recordsInMemory(), records);
        QVERIFY(writeArchive().ok());
        QCOMPARE(contents(path), archiveOf(records));
    }

    void writeCsv_keepsEveryByte()
    {
        const TestFolder folder;
        Module1.recCount = 1;
        Module1.recTags[1] = Module1.recAuthor[1] = Module1.recTitle[1] = fromCodePage(everyByte());
        QVERIFY(writeCsv().ok());
        QCOMPARE(contents("spartiti/ARCHIVIO.CSV"),
                 "\"\"" + (",\"" + everyByte() + '"').repeated(3) + QByteArray(",\"0\"").repeated(4)
                     + "\r\n");
    }

    void writeArchive_renumbersAndNormalises()
    {
        const TestFolder folder;
        Module1.recCount = 2;
        Module1.recNumber[1] = "7";
        Module1.recTitle[1] = "say \"hello\"";
        Module1.recTitle[2] = "Città \\";
        Module1.recTitle[3] = "typed at the spare position";
        QVERIFY(writeArchive().ok());
        QCOMPARE(contents(path),
                 "var archivio = [\r\n\"1\",\r\n\"say 'hello'\",\r\n\"\",\r\n\"\",\r\n\"0\",\r\n"
                 "\"2\",\r\n\"Citt\xE0 \\\",\r\n\"\",\r\n\"\",\r\n\"0\",\r\n ];\r\n");
        QVERIFY(loadArchive().result.ok());
        QCOMPARE(Module1.recNumber[2] + Module1.recCategory[1], "20");
        QCOMPARE(Module1.recTitle[3], "typed at the spare position");
    }

    void cutOrChangedAnywhere_isToldOrLosesNothing()
    {
        const TestFolder folder;
        const QByteArray whole = archiveOf(threeRecords);
        for (qsizetype i = 0; i < whole.size(); i += 1) {
            const ArchiveReading cut = readingOf(whole.first(i));
            QVERIFY(!cut.result.ok() || cut.endMissing || i >= whole.size() - 2); // only the line end is gone
            QCOMPARE(recordsInMemory(), threeRecords.first(Module1.recCount));
            QVERIFY(cut.result.ok() || Module1.recTitle[1].isEmpty());
            for (const char *byte : {"\"", ",", "x"}) {
                if (!readingOf(QByteArray(whole).replace(i, 1, byte)).result.ok())
                    continue;
                const QStringList read = recordsInMemory().replaceInStrings("\"", "'");
                QVERIFY(readingOf(archiveBytes(Module1.recCount)).result.ok());
                for (qsizetype k = 0; k < read.size(); k += 1)
                    QVERIFY(recordsInMemory()[k].startsWith(read[k]));
            }
        }
    }

    void anArchiveThatIsNotRead_isNotWritten_data()
    {
        QTest::addColumn<QByteArray>("file"); // null: a link that leads nowhere
        QTest::addColumn<Kind>("kind");
        QTest::addColumn<QString>("refusal");
        const QString damaged = "spartiti/archivio.js is damaged and was not read. It is left as it is.";
        QTest::addRow("empty") << QByteArray("") << Kind::Damaged << damaged;
        QTest::addRow("cut in its first record")
            << QByteArray("var archivio = [\r\n\"1\",\r\n") << Kind::Damaged << damaged;
        QTest::addRow("10,000 titles")
            << archiveOf(QStringList(10'000, "T|||")) << Kind::TooLarge
            << "spartiti/archivio.js holds 10000 titles instead of 9999 at most and was not "
               "read. It is left as it is.";
        QTest::addRow("out of reach") << QByteArray() << Kind::Unreadable
                                      << "spartiti/archivio.js cannot be read (Too many levels of symbolic "
                                         "links). It is left as it is.";
    }

    void anArchiveThatIsNotRead_isNotWritten()
    {
        QFETCH(QByteArray, file);
        QFETCH(Kind, kind);
        QFETCH(QString, refusal);
        const TestFolder folder;
        QVERIFY(readingOf(archiveOf({"before|||1"})).result.ok());
        if (file.isNull())
            QVERIFY(QFile::remove(path) && QFile::link("archivio.js", path));
        else
            put(path, file);
        QCOMPARE(loadArchive().result.kind, kind);
        QCOMPARE(Module1.archiveRefusal, refusal);
        QCOMPARE(recordsInMemory(), QStringList("before|||1"));
        QCOMPARE(writeArchive().text(), refusal);
        QCOMPARE(writeCsv().text(), refusal);
        QVERIFY(!wasArchiveReplaced());
        QCOMPARE(contents(path), file.isNull() ? QByteArray("(missing)") : file);
        QCOMPARE(namesIn("spartiti"), QStringList("archivio.js"));
    }

    void wasArchiveReplaced_knowsItsOwnWrites()
    {
        const TestFolder folder;
        QVERIFY(!wasArchiveReplaced());
        QVERIFY(readingOf(archiveOf(threeRecords)).result.ok() && !wasArchiveReplaced());
        Module1.recTitle[1] = "changed";
        QVERIFY(writeArchive(2).ok() && !wasArchiveReplaced());
        putArchive(threeRecords);
        QVERIFY(wasArchiveReplaced());
        QVERIFY(QFile::remove(path) && !wasArchiveReplaced());
    }
};

QTEST_APPLESS_MAIN(ArchiveFileTest)
#include "archive_file_test.moc"

#include "archive/archive_file.h"
#include "files/code_page.h"
#include "support/script.h"
#include "support/test_folder.h"

#include <QDir>
#include <QTest>

using Kind = Result::Kind;

static const QStringList threeRecords = {"First song|An author|ballad slow|0", "Für Elise, so gut||  |3",
                                         "|Anon.||33"};

static QStringList recordsInMemory()
{
    QStringList records;
    for (size_t i = 1; i <= static_cast<size_t>(Module1.recCount); i += 1) {
        records +=
            QStringList{Module1.recTitle[i], Module1.recAuthor[i], Module1.recTags[i], Module1.recCategory[i]}
                .join('|');
    }
    return records;
}

static void put(const QByteArray &archive)
{
    put("spartiti/archivio.js", archive);
}

class ArchiveFileTest : public QObject
{
    Q_OBJECT
private slots:
    void readToken_takesOneDelimiter_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QByteArrayList>("tokens");
        using List = QByteArrayList;
        QTest::newRow("field line") << QByteArray("\"1\",\r\n") << List{"1", ""};
        QTest::newRow("first line") << QByteArray("var archivio = [\r\n") << List{"var archivio = ["};
        QTest::newRow("last line") << QByteArray(" ];\r\n") << List{"];"};
        QTest::newRow("no line end") << QByteArray(" ];") << List{"];"};
        QTest::newRow("comma inside") << QByteArray("\"a, b\",") << List{"a, b"};
        QTest::newRow("empty field") << QByteArray("\"\",") << List{""};
        QTest::newRow("blank line") << QByteArray("\r\n\r\n") << List{"", ""};
        QTest::newRow("two fields") << QByteArray("\"x\",\"y\",\r\n") << List{"x", "y", ""};
        QTest::newRow("blanks kept") << QByteArray("  \"  a \" \r\n") << List{"  a ", ""};
        QTest::newRow("unquoted") << QByteArray("a b ,c") << List{"a b ", "c"};
        QTest::newRow("open quote") << QByteArray("\"a,\r\nb") << List{"a,\r\nb"};
        QTest::newRow("behind a quote") << QByteArray("\"a\"b,c") << List{"a", "b", "c"};
        QTest::newRow("line ends alone") << QByteArray("\"a\",\nb\rc") << List{"a", "", "b", "c"};
        QTest::newRow("blanks alone") << QByteArray("  ") << List{""};
        QTest::newRow("nothing") << QByteArray() << List{};
    }

    void readToken_takesOneDelimiter()
    {
        QFETCH(QByteArray, text);
        TokenFile file{text};
        QByteArrayList tokens;
        while (!file.atEnd())
            tokens += readToken(file).toByteArray();
        QTEST(tokens, "tokens");
        QVERIFY(readToken(file).isEmpty());
    }

    void loadArchive_countsTokens_data()
    {
        QTest::addColumn<int>("tokens");
        QTest::addColumn<int>("count"); // -1: damaged
        const QList<std::pair<int, int>> rows = {
            {0, -1}, {1, -1},  {2, 0},   {6, 0},  {7, 0},  {8, -1},  {11, 1},       {12, 1},
            {16, 1}, {17, -1}, {18, -1}, {22, 2}, {27, 2}, {28, -1}, {32771, 3277}, {99992, 9999}};
        for (const auto &[tokens, count] : rows)
            QTest::addRow("%d tokens", tokens) << tokens << count;
        QTest::newRow("10,000 records") << 100'002 << -1;
    }

    void loadArchive_countsTokens()
    {
        QFETCH(int, tokens);
        QFETCH(int, count);
        TestFolder folder;
        QByteArray file = QByteArray("];\r\n").repeated(qMin(tokens, 2));
        file += QByteArray("\r\n").repeated(tokens - 2);
        put(file);
        const ArchiveReading reading = loadArchive();
        QCOMPARE(reading.result.ok(), count >= 0);
        QCOMPARE(Module1.recCount, qMax(count, 0));
        QCOMPARE(Module1.archiveRefusal.isEmpty(), count >= 0);
        if (count < 0)
            QCOMPARE(writeArchive(1).kind, Kind::Refused);
        QCOMPARE(contents("spartiti/archivio.js"), file);
    }

    void roundTrip_isByteIdentical_data()
    {
        QTest::addColumn<QByteArray>("file");
        const QString any = fromCodePage(everyByte()).remove('|');
        QTest::newRow("three records") << archiveOf(threeRecords);
        QTest::newRow("no records") << archiveOf({});
        QTest::newRow("any byte") << archiveOf({any + "|" + any + "|" + any + "|7"});
        QTest::newRow("9,999 records") << archiveOf(QStringList(9999, "Title|Author|tags|1"));
        QTest::newRow("long field") << archiveOf({QString(1'000'000, u'è') + "|||0"});
    }

    void roundTrip_isByteIdentical()
    {
        QFETCH(QByteArray, file);
        TestFolder folder;
        put(file);
        const ArchiveReading reading = loadArchive();
        QVERIFY(reading.result.ok() && reading.irregularRecord == 0 && !reading.endMissing);
        QVERIFY(writeArchive().ok());
        QCOMPARE(contents("spartiti/archivio.js"), file);
    }

    void writeArchive_renumbersAndNormalises()
    {
        TestFolder folder;
        Module1.recCount = 2;
        Module1.recNumber[1] = "7";
        Module1.recTitle[1] = "say \"hello\"";
        Module1.recTitle[2] = "Città \\ €";
        Module1.recTitle[3] = "typed at the spare position";
        QVERIFY(writeArchive().ok());
        QCOMPARE(contents("spartiti/archivio.js"), archiveOf({"say 'hello'|||0", "Città \\ €|||0"}));
        QVERIFY(loadArchive().result.ok());
        QCOMPARE(Module1.recNumber[2], "2");
        QCOMPARE(Module1.recCategory[1], "0");
        QCOMPARE(Module1.recTitle[3], "typed at the spare position");
    }

    void writeArchive_isAScript()
    {
        TestFolder folder;
        putArchive(threeRecords);
        QVERIFY(loadArchive().result.ok() && writeArchive().ok());
        const QStringList expected = {
            "1", "First song", "An author", "ballad slow", "0", "2", "Für Elise, so gut", "", "  ",
            "3", "3",          "",          "Anon.",       "",  "33"};
        const Script script("spartiti/archivio.js", "archivio");
        if (script.unavailable())
            QSKIP("node is not installed");
        QCOMPARE(script.strings(), expected);
    }

    void loadArchive_tellsEveryCut()
    {
        TestFolder folder;
        const QByteArray whole = archiveOf(threeRecords);
        for (qsizetype size = 0; size < whole.size(); size += 1) {
            Module1 = {};
            put(whole.first(size));
            const ArchiveReading reading = loadArchive();
            const bool onlyTheLastLineEndIsGone = size >= whole.size() - 2;
            QVERIFY2(!reading.result.ok() || reading.endMissing || onlyTheLastLineEndIsGone,
                     qPrintable(QString::number(size)));
            if (reading.result.ok())
                QCOMPARE(recordsInMemory(), threeRecords.first(Module1.recCount));
            else
                QCOMPARE(Module1.recTitle[1], QString());
            QCOMPARE(contents("spartiti/archivio.js"), whole.first(size));
        }
    }

    void loadArchive_survivesEveryChangedByte()
    {
        TestFolder folder;
        const QByteArray whole = archiveOf(threeRecords);
        for (qsizetype i = 0; i < whole.size(); i += 1) {
            for (const char byte : {'"', ',', 'x'}) {
                QByteArray changed = whole;
                changed[i] = byte;
                Module1 = {};
                put(changed);
                if (!loadArchive().result.ok())
                    continue;
                const QStringList read = recordsInMemory().replaceInStrings("\"", "'");
                QVERIFY(writeArchive().ok() && loadArchive().result.ok());
                for (qsizetype k = 0; k < read.size(); k += 1)
                    QVERIFY(recordsInMemory()[k].startsWith(read[k]));
            }
        }
    }

    void loadArchive_namesTheFirstShiftedRecord()
    {
        TestFolder folder;
        QByteArray file = archiveOf(threeRecords);
        file.replace("\"\",\r\n", "\"\",x\r\n");
        put(file);
        QCOMPARE(loadArchive().irregularRecord, 2);
    }

    void loadArchive_doesNotTakeUnreachableForMissing()
    {
        TestFolder folder;
        QVERIFY(QDir().mkdir("spartiti") && QFile::link("archivio.js", "spartiti/archivio.js"));
        QCOMPARE(loadArchive().result.kind, Kind::Unreadable);
        QCOMPARE(writeArchive(1).kind, Kind::Refused);
    }

    void loadArchive_leavesAFolderUnderItsName()
    {
        TestFolder folder;
        QVERIFY(QDir().mkpath("spartiti/archivio.js"));
        QCOMPARE(loadArchive().result.kind, Kind::Unreadable);
        QCOMPARE(writeArchive(1).reason,
                 "spartiti/archivio.js cannot be read (this is not a file). It is left as it is.");
        Module1 = {};
        QCOMPARE(writeArchive(1).kind, Kind::Unwritable);
    }

    void writeCsv_keepsEveryByte()
    {
        TestFolder folder;
        Module1.recCount = 1;
        Module1.recTags[1] = Module1.recAuthor[1] = Module1.recTitle[1] = fromCodePage(everyByte());
        QVERIFY(writeCsv().ok());
        QCOMPARE(contents("spartiti/ARCHIVIO.CSV"),
                 "\"\"" + (",\"" + everyByte() + '"').repeated(3) + QByteArray(",\"0\"").repeated(4)
                     + "\r\n");
    }

    void writeCsv_writesWhatIsInMemory()
    {
        TestFolder folder;
        QVERIFY(writeCsv().ok());
        QCOMPARE(contents("spartiti/ARCHIVIO.CSV"), "");
        putArchive(threeRecords);
        QVERIFY(loadArchive().result.ok());
        Module1.recCount = 4;
        Module1.recTitle[4] = "Just \"added\"";
        QVERIFY(writeCsv().ok());
        QCOMPARE(contents("spartiti/ARCHIVIO.CSV"),
                 toCodePage(u"\"1\",\"First song\",\"An author\",\"ballad slow\",\"0\",\"0\",\"0\",\"0\"\r\n"
                            "\"2\",\"Für Elise, so gut\",\"\",\"  \",\"0\",\"0\",\"0\",\"0\"\r\n"
                            "\"3\",\"\",\"Anon.\",\"\",\"0\",\"0\",\"0\",\"0\"\r\n"
                            "\"\",\"Just 'added'\",\"\",\"\",\"0\",\"0\",\"0\",\"0\"\r\n"));
    }
};

QTEST_APPLESS_MAIN(ArchiveFileTest)
#include "archive_file_test.moc"

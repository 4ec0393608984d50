#include "archive/archive_file.h"
#include "archive/archive_table.h"
#include "format/code_page.h"
#include "support/table.h"
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

using Written = std::tuple<QByteArray, int, bool>; // a file, its irregular record, whether its end is missing
using Unviewable = std::pair<QStringList, QList<int>>; // records, and those that stop the viewer
using Refused = std::tuple<QByteArray, Kind, QString>; // null: a link that leads nowhere

class ArchiveFileTest : public QObject
{
    Q_OBJECT
private slots:
    void readArchive_countsByItsRule_data()
    {
        // So many tokens are so many records of one's own archive, and of another stand's; -1: not read.
        QTest::addColumn<std::array<int, 3>>("row");
        const std::array<int, 3> rows[] = {{0, -1, -1},
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
        for (const auto &row : rows)
            QTest::addRow("%d tokens", row[0]) << row;
    }

    void readArchive_countsByItsRule()
    {
        const auto [tokens, own, other] = tableRow<std::array<int, 3>>();
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
        const QByteArray whole = archiveOf(threeRecords);
        const auto with = [&](const char *before, const char *after) {
            return QByteArray(whole).replace(before, after);
        };
        tableOf<Written>({{"as written", {whole, 0, false}},
                          {"blank lines behind it", {whole + "\r\n\n", 0, false}},
                          {"other line ends", {with("\r\n", "\n"), 0, false}},
                          {"no closing line", {whole.chopped(5), 0, true}},
                          {"another closing line", {with(" ];", "]"), 0, true}},
                          {"more behind it", {whole + "x,y", 0, true}},
                          {"more behind a field", {with("\"3\",\r\n", "\"3\",x\r\n"), 2, false}},
                          {"a field without quotes", {with("\"33\"", "33"), 0, false}}});
    }

    void readArchive_tellsWhatIsNotAsWritten()
    {
        const auto [file, irregular, endMissing] = tableRow<Written>();
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
        tableOf<Unviewable>({{"none", {{"AC/DC|b|c|1", "'|,|x|2"}, {}}},
                             {"title", {{"a|b|c|1", "AC\\DC|b|c|2"}, {2}}},
                             {"author", {{"a|b\r\nb|c|1", "a|b|c|2"}, {1}}},
                             {"tags", {{"a|b|c\n|1", "a|b|\r|2"}, {1, 2}}},
                             {"category", {{"a|b|c|\\"}, {}}}});
    }

    void unviewableRecords_areThoseThatStopTheViewer()
    {
        const auto [records, unviewable] = tableRow<Unviewable>();
        const TestFolder folder;
        QCOMPARE(readingOf(archiveOf(records)).unviewable, unviewable);
    }

    void roundTrip_isByteIdentical_data()
    {
        const QString any = fromCodePage(everyByte()).remove('|');
        tableOf<QStringList>({{"three records", threeRecords},
                              {"none", {}},
                              {"as many as there can be", QStringList(9999, "Title|Author|tags|1")},
                              {"every byte in every field", {any + "|" + any + "|" + any + "|7"}}});
    }

    void roundTrip_isByteIdentical()
    {
        const auto records = tableRow<QStringList>();
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
        const QString damaged = "is damaged and was not read.";
        tableOf<Refused>({{"empty", {"", Kind::Damaged, damaged}},
                          {"cut", {"var archivio = [\r\n\"1\",\r\n", Kind::Damaged, damaged}},
                          {"10,000 titles",
                           {archiveOf(QStringList(10'000, "T|||")), Kind::TooLarge,
                            "holds 10000 titles instead of 9999 at most and was not read."}},
                          {"out of reach",
                           {{}, Kind::Unreadable, "cannot be read (Too many levels of symbolic links)."}}});
    }

    void anArchiveThatIsNotRead_isNotWritten()
    {
        const auto [file, kind, reason] = tableRow<Refused>();
        const QString refusal = "spartiti/archivio.js " + reason + " It is left as it is.";
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

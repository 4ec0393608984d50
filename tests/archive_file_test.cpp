#include "archive/archive_file.h"
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
    void loadArchive_countsTokens()
    {
        const QList<std::pair<int, int>> rows = {// tokens, and records among them; -1 where damaged
                                                 {0, -1},  {1, -1},  {2, 0},        {7, 0},       {8, -1},
                                                 {10, -1}, {11, 1},  {16, 1},       {17, -1},     {22, 2},
                                                 {27, 2},  {28, -1}, {99992, 9999}, {100'002, -1}};
        for (const auto &[tokens, count] : rows) {
            const TestFolder folder;
            const QByteArray file =
                QByteArray("];\r\n").repeated(qMin(tokens, 2)) + QByteArray("\r\n").repeated(tokens - 2);
            QCOMPARE(readingOf(file).result.ok(), count >= 0);
            QCOMPARE(Module1.recCount, qMax(count, 0));
            QVERIFY(count >= 0 || writeArchive(1).kind == Kind::Refused);
            QCOMPARE(contents(path), file);
        }
    }

    void roundTrip_isByteIdentical()
    {
        const QString any = fromCodePage(everyByte()).remove('|');
        for (const QStringList &records :
             {threeRecords, QStringList(), QStringList(9999, "Title|Author|tags|1"),
              QStringList(any + "|" + any + "|" + any + "|7")}) {
            const TestFolder folder;
            const ArchiveReading reading = readingOf(archiveOf(records));
            QVERIFY(reading.result.ok() && reading.irregularRecord == 0 && !reading.endMissing);
            QCOMPARE(recordsInMemory(), records);
            QVERIFY(writeArchive().ok());
            QCOMPARE(contents(path), archiveOf(records));
        }
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
                QVERIFY(writeArchive().ok() && loadArchive().result.ok());
                for (qsizetype k = 0; k < read.size(); k += 1)
                    QVERIFY(recordsInMemory()[k].startsWith(read[k]));
            }
        }
        QCOMPARE(readingOf(QByteArray(whole).replace("\"\",\r\n", "\"\",x\r\n")).irregularRecord, 2);
        QVERIFY(QFile::remove(path) && QFile::link("archivio.js", path)); // there, but out of reach
        QCOMPARE(loadArchive().result.kind, Kind::Unreadable);
        QCOMPARE(writeArchive(1).kind, Kind::Refused);
    }
};

QTEST_APPLESS_MAIN(ArchiveFileTest)
#include "archive_file_test.moc"

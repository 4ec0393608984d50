#include "archive/archive_file.h"
#include "archive/archive_table.h"
#include "format/code_page.h"
#include "support/test_folder.h"

static const QString path = "spartiti/archivio.js";
static const QStringList threeRecords = {"A song|An author|two tags|0", "Für Elise, so gut||  |3", "|B||33"};

static ArchiveReading readingOf(const QByteArray &file)
{
    Module1 = {};
    put(path, file);
    return loadArchive();
}

static QByteArray changed(const char *before, const char *after)
{
    return archiveOf(threeRecords).replace(before, after);
}

using Written = std::tuple<QByteArray, int, bool>; // a file, its irregular record, whether its end is missing
using Refused = std::pair<QByteArray, QString>; // null: a link that leads nowhere

class ArchiveFileTest : public FolderTest
{
    Q_OBJECT
private slots:
    void readArchive_countsByItsRule_data()
    {
        // So many tokens are so many records of one's own archive, and of another stand's; -: not read.
        rowsOf({"0 - -", "1 - 0", "2 0 0", "7 0 0", "8 - 0", "10 - 0", "11 1 0", "16 1 1", "17 - 1", "22 2 2",
                "27 2 2", "28 - 2", "99992 9999 9999", "99996 9999 9999", "100002 - 10000", "100011 - 10000",
                "100012 - -", "100100 - -"});
    }
    void readArchive_countsByItsRule()
    {
        const QString row = QTest::currentDataTag();
        const int tokens = row.section(' ', 0, 0).toInt();
        const QByteArray file =
            QByteArray("];\r\n").repeated(qMin(tokens, 2)) + QByteArray("\r\n").repeated(tokens - 2);
        QStringList seen{QString::number(tokens)};
        for (const auto &rule : {ownArchive, otherArchive}) {
            const ArchiveTable table = readArchive(file, rule);
            seen += table.result.ok() ? QString::number(table.count()) : "-";
        }
        QCOMPARE(seen.join(' '), row);
    }

    void readArchive_tellsWhatIsNotAsWritten_data()
    {
        const QByteArray whole = archiveOf(threeRecords);
        tableOf<Written>({{"as written", {whole, 0, false}},
                          {"blank lines behind it", {whole + "\r\n\n", 0, false}},
                          {"other line ends", {changed("\r\n", "\n"), 0, false}},
                          {"no closing line", {whole.chopped(5), 0, true}},
                          {"more behind it", {whole + "x,y", 0, true}},
                          {"more behind a field", {changed("\"3\",\r\n", "\"3\",x\r\n"), 2, false}}});
    }
    void readArchive_tellsWhatIsNotAsWritten()
    {
        const auto [file, irregular, endMissing] = tableRow<Written>();
        const ArchiveTable table = readArchive(file, ownArchive);
        QCOMPARE(table.count(), 3);
        QCOMPARE(table.irregularRecord, irregular);
        QCOMPARE(table.endMissing, endMissing);
        for (size_t n = 1; n <= 3; n += 1)
            QVERIFY(file.sliced(table.records[n].place).startsWith('"' + QByteArray::number(int(n))));
    }

    void roundTrip_isByteIdentical()
    {
        const QString any = fromCodePage(everyByte()).remove('|');
        for (const QStringList &records : {QStringList(), QStringList(9999, "Title|Author|tags|1"),
                                           QStringList(any + "|" + any + "|" + any + "|7")}) {
            QVERIFY(readingOf(archiveOf(records)).result.ok());
            QCOMPARE(recordsInMemory(), records);
            QVERIFY(writeArchive().ok());
            QCOMPARE(contents(path), archiveOf(records));
        }
    }

    void writing_renumbersAndNormalises()
    {
        Module1.recCount = 2;
        Module1.recNumber[1] = "7";
        Module1.recTitle[1] = "say \"hello\"";
        Module1.recTitle[2] = "Città \\";
        Module1.recTitle[3] = "typed at the spare position";
        QVERIFY(writeCsv().ok());
        QCOMPARE(contents("spartiti/ARCHIVIO.CSV"),
                 "\"7\",\"say 'hello'\",\"\",\"\",\"0\",\"0\",\"0\",\"0\"\r\n"
                 "\"\",\"Citt\xE0 \\\",\"\",\"\",\"0\",\"0\",\"0\",\"0\"\r\n");
        QVERIFY(writeArchive().ok());
        QCOMPARE(contents(path), archiveOf({"say 'hello'|||0", "Città \\|||0"}));
        QVERIFY(loadArchive().result.ok());
        QCOMPARE(Module1.recNumber[2] + Module1.recCategory[1], "20");
        QCOMPARE(Module1.recTitle[3], "typed at the spare position");
    }

    void cutOrChangedAnywhere_isToldOrLosesNothing()
    {
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
        tableOf<Refused>({{"cut", {"var archivio = [\r\n\"1\",\r\n", "is damaged and was not read."}},
                          {"10,000 titles",
                           {archiveOf(QStringList(10'000, "T|||")),
                            "holds 10000 titles instead of 9999 at most and was not read."}},
                          {"out of reach", {{}, "cannot be read (Too many levels of symbolic links)."}}});
    }
    void anArchiveThatIsNotRead_isNotWritten()
    {
        const auto [file, reason] = tableRow<Refused>();
        const QString refusal = "spartiti/archivio.js " + reason + " It is left as it is.";
        QVERIFY(readingOf(archiveOf({"before|||1"})).result.ok());
        if (file.isNull())
            QVERIFY(QFile::remove(path) && putLink("archivio.js", path));
        else
            put(path, file);
        QVERIFY(!loadArchive().result.ok());
        QCOMPARE(QDir::fromNativeSeparators(Module1.archiveRefusal), refusal);
        QCOMPARE(recordsInMemory(), QStringList("before|||1"));
        QCOMPARE(QDir::fromNativeSeparators(writeArchive().text()), refusal);
        QCOMPARE(QDir::fromNativeSeparators(writeCsv().text()), refusal);
        QVERIFY(!wasArchiveReplaced());
        QCOMPARE(contents(path), file.isNull() ? QByteArray("(missing)") : file);
        QCOMPARE(namesIn("spartiti"), QStringList("archivio.js"));
    }

    void wasArchiveReplaced_knowsItsOwnWrites()
    {
        QVERIFY(!wasArchiveReplaced());
        QVERIFY(readingOf(archiveOf(threeRecords)).result.ok() && !wasArchiveReplaced());
        Module1.recTitle[1] = "changed";
        QVERIFY(writeArchive(2).ok() && !wasArchiveReplaced());
        {
            const FullDisk disk(0);
            QVERIFY(!writeArchive().ok() && !wasArchiveReplaced());
        }
        putArchive(threeRecords);
        QVERIFY(wasArchiveReplaced());
        QVERIFY(QFile::remove(path) && !wasArchiveReplaced());
    }
};

QTEST_GUILESS_MAIN(ArchiveFileTest)
#include "archive_file_test.moc"

#include "files/data_folder.h"
#include "midi/midi_file.h"
#include "support/test_folder.h"

#include <QRandomGenerator>
#include <QSet>
#include <QTest>

using Kind = Result::Kind;

static const char header[] = "var midi = [\r\n";
static const char trailer[] = " ];\r\n";

static QByteArray rowLine(const QByteArray &row)
{
    return '"' + row + "\",\r\n";
}

// A block whose rows all hold `row`.
static QByteArray block(const QByteArray &number, const QByteArray &row)
{
    return rowLine(number) + rowLine(row).repeated(16);
}

// Rows in which each of the 48 values of a song differs from those of any other song.
static QByteArray songBlock(int song)
{
    QByteArray bytes = rowLine(QByteArray::number(song));
    for (int k = 1; k <= 16; k += 1)
        bytes += rowLine(QByteArray::number(song) + ',' + QByteArray::number(k) + ",00"
                         + QByteArray::number(k % 10));
    return bytes;
}

static MidiFields fieldsOf(const QString &msb, const QString &lsb, const QString &pc)
{
    MidiFields fields;
    for (size_t k = 1; k <= 16; k += 1) {
        fields.midiFieldMsb[k] = msb;
        fields.midiFieldLsb[k] = lsb;
        fields.midiFieldPc[k] = pc;
    }
    return fields;
}

class MidiFileTest : public QObject
{
    Q_OBJECT
private slots:
    void split_row_data();
    void split_row();
    void save_keeps_all_other_blocks_data();
    void save_keeps_all_other_blocks();
    void numbers_match_by_value_data();
    void numbers_match_by_value();
    void reading_tells_what_is_wrong_data();
    void reading_tells_what_is_wrong();
    void cut_file_never_passes_for_a_whole_one();
    void changed_byte_loses_no_settings();
    void hundred_saves_leave_the_other_blocks_alone();
    void largest_table();
    void full_disk_leaves_file_and_table();
};

void MidiFileTest::split_row_data()
{
    QTest::addColumn<QByteArray>("row");
    QTest::addColumn<QStringList>("fields");
    QTest::newRow("three fields") << QByteArray("121,000,5") << QStringList{"121", "000", "5"};
    QTest::newRow("empty") << QByteArray("") << QStringList{"", "", ""};
    QTest::newRow("commas alone") << QByteArray(",,") << QStringList{"", "", ""};
    QTest::newRow("no comma") << QByteArray("121") << QStringList{"121", "", ""};
    QTest::newRow("one comma") << QByteArray("121,7") << QStringList{"121", "7", ""};
    QTest::newRow("three commas") << QByteArray("1,2,3,4") << QStringList{"1", "2", "3"};
    QTest::newRow("fifty commas") << QByteArray("1,2") + QByteArray(49, ',') << QStringList{"1", "2", ""};
    QTest::newRow("any character") << QByteArray("a\x80,\xE9 ,x") << QStringList{"a€", "é ", "x"};
}

void MidiFileTest::split_row()
{
    QFETCH(QByteArray, row);
    QFETCH(QStringList, fields);
    MidiFields split;
    splitMidiRow(row, 16, split);
    QCOMPARE((QStringList{split.midiFieldMsb[16], split.midiFieldLsb[16], split.midiFieldPc[16]}), fields);
    splitMidiRow(row, 16, split);
    QCOMPARE(split.midiFieldMsb[16], fields[0] + fields[0]);
}

void MidiFileTest::save_keeps_all_other_blocks_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<int>("song");
    QTest::addColumn<QByteArray>("after");

    const QByteArray saved = rowLine("121,,5").repeated(16);
    const QByteArray three = songBlock(9) + songBlock(2) + songBlock(5);
    QTest::newRow("no file") << QByteArray() << 7 << header + rowLine("7") + saved + trailer;
    QTest::newRow("no blocks") << QByteArray(header) + trailer << 0
                               << header + rowLine("0") + saved + trailer;
    QTest::newRow("the middle block keeps its place") << header + three
            + trailer << 2 << header + songBlock(9) + rowLine("2") + saved + songBlock(5) + trailer;
    QTest::newRow("a new block comes last")
        << header + three + trailer << 4 << header + three + rowLine("4") + saved + trailer;
    QTest::newRow("012 stays 012") << header + block("012", "1,2,3") + trailer << 12
                                   << header + rowLine("012") + saved + trailer;
    QTest::newRow("doubled") << header + block("3", "1,2,3") + songBlock(4) + block("3", "4,5,6")
            + trailer << 3 << header + rowLine("3") + saved + songBlock(4) + rowLine("3") + saved + trailer;
    const QByteArray odd = block("-5", "word") + block("32768", "1,2,3,4,5")
        + block("99999999999999999999", ",") + block("2", "\xE9\x81,1,2");
    QTest::newRow("odd numbers and rows")
        << header + odd + trailer << 5 << header + odd + rowLine("5") + saved + trailer;
    QByteArray unixLines = header + three + trailer;
    QTest::newRow("LF line ends") << unixLines.replace("\r\n", "\n") << 5
                                  << header + songBlock(9) + songBlock(2) + rowLine("5") + saved + trailer;
    QTest::newRow("blanks, no quotes, another head and end") << "midi = [\r\n  "
            + block(" 8 ", "1,2,3").replace("\",", "\" ").replace("\r\n", " \r\n")
            + "]\r\n\r\n" << 5 << header + block(" 8 ", "1,2,3") + rowLine("5") + saved + trailer;
}

void MidiFileTest::save_keeps_all_other_blocks()
{
    QFETCH(QByteArray, before);
    QFETCH(int, song);
    QFETCH(QByteArray, after);
    TestFolder folder;
    MidiTable table;
    if (!before.isEmpty()) {
        put(midiPath(), before);
        QVERIFY(readMidiFile(table).ok());
    }
    QVERIFY(writeMidiFile(table, song, fieldsOf("121", "", "5")).ok());
    QCOMPARE(contents(midiPath()), after);
    QVERIFY(writeMidiFile(table, song, fieldsOf("121", "", "5")).ok());
    QCOMPARE(contents(midiPath()), after);

    MidiTable again;
    QVERIFY(readMidiFile(again).ok());
    QCOMPARE(again.midiBlockCount, table.midiBlockCount);
    QCOMPARE(again.bytes, table.bytes);
    QVERIFY(again.asWritten && !again.endMissing);
}

void MidiFileTest::numbers_match_by_value_data()
{
    QTest::addColumn<QByteArray>("number");
    QTest::addColumn<int>("song");
    QTest::addColumn<int>("blocks");
    QTest::newRow("plain") << QByteArray("12") << 12 << 1;
    QTest::newRow("leading zeros") << QByteArray("0012") << 12 << 1;
    QTest::newRow("part of it") << QByteArray("12") << 1 << 0;
    QTest::newRow("none") << QByteArray("000") << 0 << 1;
    QTest::newRow("negative") << QByteArray("-12") << 12 << 0;
    QTest::newRow("beyond 16 bits") << QByteArray("65548") << 12 << 0;
}

void MidiFileTest::numbers_match_by_value()
{
    QFETCH(QByteArray, number);
    QFETCH(int, song);
    TestFolder folder;
    put(midiPath(), header + block(number, "1,2,3") + trailer);
    MidiTable table;
    QVERIFY(readMidiFile(table).ok());
    MidiFields fields;
    QTEST(collectMidiFields(table, song, fields), "blocks");
}

void MidiFileTest::reading_tells_what_is_wrong_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<Kind>("kind");
    QTest::addColumn<int>("blocks");
    QTest::addColumn<bool>("endMissing");

    const QByteArray two = header + songBlock(1) + songBlock(2);
    QTest::newRow("empty file") << QByteArray("") << Kind::Damaged << 0 << false;
    QTest::newRow("head alone") << QByteArray(header) << Kind::Fine << 0 << true;
    QTest::newRow("no end") << two << Kind::Fine << 2 << true;
    QTest::newRow("another end") << two + "]\r\n" << Kind::Fine << 2 << true;
    QTest::newRow("blank lines behind") << two + trailer + "\r\n\r\n" << Kind::Fine << 2 << false;
    QTest::newRow("a row behind") << two + rowLine("1,2,3") + trailer << Kind::Damaged << 0 << false;
    QTest::newRow("a row for an end") << two + rowLine("1,2,3") << Kind::Damaged << 0 << false;
    QTest::newRow("more script behind") << two + trailer + "x = 1\r\n" << Kind::Damaged << 0 << false;
    QTest::newRow("a row short") << header + rowLine("1") + rowLine("0,0,0").repeated(15) + trailer
                                 << Kind::Damaged << 0 << false;
    QTest::newRow("rows shifted") << header + songBlock(1) + rowLine("2") + rowLine("0,0,0").repeated(15)
            + songBlock(3) + rowLine("0,0,0") + songBlock(4) + trailer
                                  << Kind::Damaged << 0 << false;
    QTest::newRow("a word for a number")
        << header + block("one", "1,2,3") + trailer << Kind::Damaged << 0 << false;
    QTest::newRow("no number") << header + block("", "1,2,3") + trailer << Kind::Damaged << 0 << false;
    QByteArray noComma = two + trailer;
    noComma.remove(noComma.indexOf("1,3,003") + 8, 1);
    QTest::newRow("a line without its comma") << noComma << Kind::Damaged << 0 << false;
    QByteArray noHead = two.sliced(qstrlen(header)) + trailer;
    QTest::newRow("no head") << noHead << Kind::Damaged << 0 << false;
}

void MidiFileTest::reading_tells_what_is_wrong()
{
    QFETCH(QByteArray, bytes);
    TestFolder folder;
    put(midiPath(), bytes);
    MidiTable table;
    QTEST(readMidiFile(table).kind, "kind");
    QTEST(table.midiBlockCount, "blocks");
    QTEST(table.endMissing, "endMissing");
}

void MidiFileTest::cut_file_never_passes_for_a_whole_one()
{
    TestFolder folder;
    const QByteArray whole = header + songBlock(1) + songBlock(22) + trailer;
    const qsizetype closed = whole.lastIndexOf(']') + 2;
    for (qsizetype size = 0; size < closed; size += 1) {
        put(midiPath(), whole.first(size));
        MidiTable table;
        const Result read = readMidiFile(table);
        QVERIFY2(!read.ok() || table.endMissing, qPrintable(QString::number(size)));
        // Whatever a save would keep is a beginning of the file in whole blocks.
        if (read.ok())
            QVERIFY(table.block.back().start + 4 > size);
    }
}

static QSet<QByteArray> textsOf(const QByteArray &bytes)
{
    QByteArray simple = bytes;
    for (const char separator : {'"', '\r', '\n', ',', ' '})
        simple.replace(separator, '|');
    const QList<QByteArray> texts = simple.split('|');
    return {texts.begin(), texts.end()};
}

void MidiFileTest::changed_byte_loses_no_settings()
{
    TestFolder folder;
    const QByteArray whole = header + songBlock(1) + songBlock(22) + trailer;
    const qsizetype end = whole.size() - qstrlen(trailer);
    for (qsizetype at = qstrlen(header); at < end - 1; at += 1) {
        for (const char byte : {'"', ',', '\r', '\n', ' ', 'x', '\0', '9'}) {
            QByteArray changed = whole;
            changed[at] = byte;
            put(midiPath(), changed);
            MidiTable table;
            if (!readMidiFile(table).ok())
                continue;
            QVERIFY(writeMidiFile(table, 7, {}).ok());
            const QSet<QByteArray> lost = textsOf(changed.sliced(qstrlen(header), end - qstrlen(header)))
                - textsOf(contents(midiPath()));
            QVERIFY2(lost.isEmpty(), qPrintable(QStringLiteral("%1 at %2").arg(byte).arg(at)));
            MidiTable again;
            QVERIFY(readMidiFile(again).ok());
        }
    }
}

void MidiFileTest::hundred_saves_leave_the_other_blocks_alone()
{
    TestFolder folder;
    QRandomGenerator random(5);
    QList<QPair<int, QByteArray>> expected;
    for (int save = 0; save < 100; save += 1) {
        const int song = random.bounded(1, 30);
        const QString value = QString::number(random.bounded(1000));
        MidiTable table;
        const Result read = readMidiFile(table);
        QVERIFY(read.ok() || save == 0);
        QVERIFY(writeMidiFile(table, song, fieldsOf(value, "", "1")).ok());

        const QByteArray bytes = block(QByteArray::number(song), value.toLatin1() + ",,1");
        const auto known =
            std::find_if(expected.begin(), expected.end(), [&](auto &e) { return e.first == song; });
        if (known == expected.end())
            expected.append({song, bytes});
        else
            known->second = bytes;
        QByteArray file = header;
        for (const auto &[number, text] : expected)
            file += text;
        QCOMPARE(contents(midiPath()), file + trailer);
    }
}

void MidiFileTest::largest_table()
{
    TestFolder folder;
    QByteArray bytes(header);
    for (int song = 1; song <= MidiTable::lastBlock; song += 1)
        bytes += block(QByteArray::number(song), "000,000,000");
    put(midiPath(), bytes + trailer);
    MidiTable table;
    QVERIFY(readMidiFile(table).ok());
    QCOMPARE(table.midiBlockCount, MidiTable::lastBlock);
    QCOMPARE(table.midiBlockNumber(MidiTable::lastBlock), "170000");
    const auto held =
        static_cast<size_t>(table.bytes.capacity()) + table.block.capacity() * sizeof(table.block[0]);
    QVERIFY(held * 10 < static_cast<size_t>(bytes.size()) * 22);
    QCOMPARE(writeMidiFile(table, 0, {}).kind, Kind::Refused);

    put(midiPath(), bytes + block("170001", "000,000,000") + trailer);
    QCOMPARE(readMidiFile(table).kind, Kind::TooLarge);
    QCOMPARE(table.midiBlockCount, MidiTable::lastBlock);
}

void MidiFileTest::full_disk_leaves_file_and_table()
{
    TestFolder folder;
    const QByteArray before = header + songBlock(1) + songBlock(2) + trailer;
    put(midiPath(), before);
    MidiTable table;
    QVERIFY(readMidiFile(table).ok());
    for (const qint64 room : {0, 1, 100}) {
        const FullDisk full(room);
        QCOMPARE(writeMidiFile(table, 2, {}).kind, Kind::Unwritable);
        QCOMPARE(contents(midiPath()), before);
        QCOMPARE(table.bytes, before);
    }
    QCOMPARE(namesIn("spartiti"), QStringList("midi.js"));
}

QTEST_APPLESS_MAIN(MidiFileTest)
#include "midi_file_test.moc"

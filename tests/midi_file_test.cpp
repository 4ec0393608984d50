#include "files/data_folder.h"
#include "midi/midi_file.h"
#include "support/test_folder.h"

#include <QRandomGenerator>
#include <QSet>
#include <QTest>

using Kind = Result::Kind;

static const QByteArray header("var midi = [\r\n");
static const QByteArray trailer(" ];\r\n");

static QByteArray row(const QByteArray &text)
{
    return '"' + text + "\",\r\n";
}

// A block whose rows all hold `text`.
static QByteArray block(const QByteArray &number, const QByteArray &text)
{
    return row(number) + row(text).repeated(16);
}

// The texts of 48 boxes, alike in every row.
static MidiFields fieldsOf(const QString &msb, const QString &lsb, const QString &pc)
{
    MidiFields fields;
    fields.midiFieldMsb.fill(msb);
    fields.midiFieldLsb.fill(lsb);
    fields.midiFieldPc.fill(pc);
    return fields;
}

class MidiFileTest : public QObject
{
    Q_OBJECT
private slots:
    void save_without_a_change_keeps_every_byte();
    void odd_files_are_put_right_and_keep_their_texts();
    void file_that_does_not_fit_its_count_is_damaged();
    void cut_or_changed_file_loses_no_settings();
    void hundred_saves_leave_the_other_blocks_alone();
    void largest_table();
};

void MidiFileTest::save_without_a_change_keeps_every_byte()
{
    TestFolder folder;
    const QByteArray field = everyByte().replace(',', "");
    const QByteArray file =
        header + block("1", everyByte()) + block("12", field + ',' + field + ',' + field) + trailer;
    put(midiPath(), file);
    MidiTable table;
    MidiFields fields;
    QVERIFY(readMidiFile(table).ok() && collectMidiFields(table, 12, fields) == 1);
    QVERIFY(writeMidiFile(table, 12, fields).ok());
    QCOMPARE(contents(midiPath()), file);
}

void MidiFileTest::odd_files_are_put_right_and_keep_their_texts()
{
    const QByteArray odd = block("-5", "word") + block("65548", QByteArray(50, ',')) + block("0", "\xE9\x81")
        + block("99999999999999999999", "") + block(" 8 ", "1,2,3,4");
    const QByteArray saved = row("121,,5").repeated(16);
    const QByteArray before = block("012", "1,2,3") + odd + block("12", "4,5,6");
    QByteArray otherwise = "midi = [\n  " + before + "]\n\n";
    otherwise.replace("\r\n", " \n");
    for (const QByteArray &bytes : {header + before + trailer, otherwise}) {
        TestFolder folder;
        MidiTable table;
        put(midiPath(), bytes);
        QVERIFY(readMidiFile(table).ok());
        for (const char *pc : {"7777", "5", "5"}) { // each save starts from what the one before left
            QVERIFY(writeMidiFile(table, 12, fieldsOf("121", "", pc)).ok());
            QCOMPARE(contents(midiPath()), table.bytes);
        }
        QCOMPARE(table.bytes, header + row("012") + saved + odd + row("12") + saved + trailer);
    }
}

void MidiFileTest::file_that_does_not_fit_its_count_is_damaged()
{
    TestFolder folder;
    const QByteArray two = header + block("1", "1,2,3") + block("2", "1,2,3");
    const QByteArray shifted = row("1") + row(",,").repeated(15) + block("2", ",,") + row(",,");
    for (const QByteArray &bytes :
         {two + row("1,2,3") + trailer, two + row("1,2,3"), two + trailer + "x = 1\r\n", QByteArray(),
          header + shifted + block("3", ",,") + trailer, header + block("one", ",,") + trailer,
          two.sliced(header.size()) + trailer}) {
        put(midiPath(), bytes);
        MidiTable table;
        QVERIFY2(readMidiFile(table).kind == Kind::Damaged, bytes);
    }
}

static QSet<QByteArray> textsOf(QByteArray bytes)
{
    for (const char separator : {'"', '\r', '\n', ' '})
        bytes.replace(separator, ',');
    const QList<QByteArray> texts = bytes.split(',');
    return {texts.begin(), texts.end()};
}

// Each file is refused or told of, or stands as written, or a save carries along every text in it.
void MidiFileTest::cut_or_changed_file_loses_no_settings()
{
    TestFolder folder;
    QByteArray blocks;
    for (int line = 0; line < 34; line += 1)
        blocks += row(QByteArray::number(300 + line) + (line % 17 == 0 ? "" : ",5x,y"));
    const QByteArray whole = header + blocks + trailer;
    for (qsizetype at = header.size(); at < whole.size() - trailer.size() - 1; at += 1) {
        put(midiPath(), whole.first(at));
        MidiTable cut;
        QVERIFY(!readMidiFile(cut).ok() || (cut.endMissing && cut.block.back().start + 2 > at));
        for (const char byte : {'"', ',', '\n', ' ', '\0'}) {
            const QByteArray changed = whole.first(at) + byte + whole.sliced(at + 1);
            put(midiPath(), changed);
            MidiTable table;
            if (!readMidiFile(table).ok() || table.asWritten)
                continue;
            QVERIFY(writeMidiFile(table, 7, {}).ok());
            const QByteArray before = changed.sliced(header.size(), blocks.size() - 1);
            QVERIFY2((textsOf(before) - textsOf(table.bytes)).isEmpty(), changed);
        }
    }
}

void MidiFileTest::hundred_saves_leave_the_other_blocks_alone()
{
    TestFolder folder;
    QRandomGenerator random(5);
    QList<QPair<int, QByteArray>> blocks;
    for (int save = 0; save < 100; save += 1) {
        const int song = random.bounded(1, 30);
        const QByteArray value = QByteArray::number(random.bounded(1000));
        MidiTable table;
        QCOMPARE(readMidiFile(table).ok(), save > 0);
        QVERIFY(writeMidiFile(table, song, fieldsOf(value, "", "1")).ok());
        auto saved = std::find_if(blocks.begin(), blocks.end(), [&](auto &one) { return one.first == song; });
        if (saved == blocks.end())
            saved = blocks.insert(saved, {song, {}});
        saved->second = block(QByteArray::number(song), value + ",,1");
        QByteArray expected = header;
        for (const auto &[number, bytes] : blocks)
            expected += bytes;
        QCOMPARE(contents(midiPath()), expected + trailer);
    }
}

void MidiFileTest::largest_table()
{
    TestFolder folder;
    QByteArray bytes = header;
    for (int song = 1; song <= MidiTable::lastBlock; song += 1)
        bytes += block(QByteArray::number(song), "000,000,000");
    put(midiPath(), bytes + trailer);
    MidiTable table;
    QVERIFY(readMidiFile(table).ok());
    QCOMPARE(table.midiBlockNumber(MidiTable::lastBlock), "170000");
    const auto besides = static_cast<qsizetype>(table.block.capacity() * sizeof(table.block[0]));
    QVERIFY(10 * (table.bytes.capacity() + besides) < 22 * bytes.size());
    QCOMPARE(writeMidiFile(table, 0, {}).kind, Kind::Refused);
    put(midiPath(), bytes + block("170001", "000,000,000") + trailer);
    QCOMPARE(readMidiFile(table).kind, Kind::TooLarge);
    QCOMPARE(table.midiBlockCount, MidiTable::lastBlock);
}

QTEST_APPLESS_MAIN(MidiFileTest)
#include "midi_file_test.moc"

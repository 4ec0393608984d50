#include "files/data_folder.h"
#include "format/code_page.h"
#include "midi/midi_save.h"
#include "support/test_folder.h"

#include <QSet>

// A block whose rows all hold `text`.
static QByteArray block(const QString &number, const QString &text)
{
    return linesOf(number + ('|' + text).repeated(16));
}

// The texts of 48 boxes, alike in every row.
static MidiFields fieldsOf(const QString &pc)
{
    MidiFields fields;
    fields.midiFieldMsb.fill("121");
    fields.midiFieldPc.fill(pc);
    return fields;
}

static QSet<QByteArray> textsOf(QByteArray bytes)
{
    for (const char separator : {'"', '\r', '\n', ' '})
        bytes.replace(separator, ',');
    const QList<QByteArray> texts = bytes.split(',');
    return {texts.begin(), texts.end()};
}

using Damaged = std::pair<QByteArray, int>; // a file and its first bad line

class MidiFileTest : public FolderTest
{
    Q_OBJECT
private slots:
    void oddFile_isPutRightAndKeepsItsTexts()
    {
        const QString any = fromCodePage(everyByte()).remove('|');
        const QByteArray odd = block("-5", any) + block("-6", "word") + block("65548", QString(50, ','))
            + block("0", "") + block("99999999999999999999", "") + block(" 8 ", "1,2,3,4");
        const QByteArray before = fileOf("midi", block("012", "1,2,3") + odd + block("12", "4,5,6"));
        QByteArray otherwise = before;
        otherwise.replace("var midi", "midi").replace("];", "]").replace("\r\n", " \n");
        const QByteArray lines = QByteArray(before).replace("\",\r\n\"", "\",\n\""); // those inside alone
        for (const QByteArray &bytes : {before, otherwise, lines}) {
            MidiTable table;
            put(midiPath(), bytes);
            QVERIFY(readMidiFile(table).ok());
            QVERIFY(writeMidiFile(table, 12, fieldsOf("7777")).ok()); // the next starts from what it left
            QVERIFY(writeMidiFile(table, 12, fieldsOf("5")).ok());
            QCOMPARE(contents(midiPath()),
                     fileOf("midi", block("012", "121,,5") + odd + block("12", "121,,5")));
        }
    }

    void damagedFile_isToldWithItsLine_data()
    {
        const QByteArray two = block("1", "1,2,3") + block("2", "1,2,3");
        const auto with = [&](int line, const char *text) {
            QByteArrayList lines = fileOf("midi", two).split('\n');
            lines[line - 1] = text + QByteArray("\r");
            return lines.join('\n');
        };
        tableOf<Damaged>({{"a line too many", {fileOf("midi", two + linesOf("1,2,3")), 36}},
                          {"a line too few", {QByteArray(fileOf("midi", two)).replace("\"2\",\r\n", ""), 19}},
                          {"cut behind the last comma", {fileOf("midi", two).chopped(7), 35}},
                          {"script behind the end", {fileOf("midi", two) + "x = 1\r\n", 37}},
                          {"number is a word", {fileOf("midi", block("1", ",,") + block("one", ",,")), 19}},
                          {"no comma", {with(5, "\"1,2,3\""), 5}},
                          {"quote inside a text", {with(5, "x\"1\","), 5}},
                          {"two texts in a line", {with(5, "\"1,2,3\",\"4,5,6\","), 5}},
                          {"no first line", {two + " ];\r\n", 1}}});
    }

    void damagedFile_isToldWithItsLine()
    {
        const auto [bytes, line] = tableRow<Damaged>();
        put("another.js", bytes);
        MidiTable table;
        const QString told = readMidiFile(table, "./another.js").refusal();
        QVERIFY2(told.startsWith(QString("another.js is damaged in line %1 ").arg(line)), qPrintable(told));
    }

    // Each file is refused or told of, or stands as written, or a save carries along every text in it.
    void cutOrChangedAnywhere_losesNoSettings()
    {
        QByteArray blocks;
        for (int line = 0; line < 34; line += 1)
            blocks += linesOf(QString::number(300 + line) + (line % 17 == 0 ? "" : ",5x,y"));
        const QByteArray whole = fileOf("midi", blocks);
        const qsizetype first = whole.indexOf(blocks);
        for (qsizetype at = first; at < first + blocks.size() - 1; at += 1) {
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
                const QByteArray before = changed.sliced(first, blocks.size() - 1);
                QVERIFY2((textsOf(before) - textsOf(table.bytes)).isEmpty(), changed);
            }
        }
    }

    void saves_changeTheirSongAlone()
    {
        QMap<int, QByteArray> blocks;
        MidiTable kept; // one that outlives its saves, beside one read afresh for each
        const std::pair<int, QString> saves[] = {{3, "1"}, {7, "22"}, {3, "333"}, {9, "4"}, {7, ""}};
        for (const auto &[song, pc] : saves) {
            blocks[song] = block(QString::number(song), "121,," + pc);
            MidiTable fresh;
            (void)readMidiFile(fresh);
            for (MidiTable *table : {&fresh, &kept}) {
                QVERIFY(writeMidiFile(*table, song, fieldsOf(pc)).ok());
                QCOMPARE(contents(midiPath()), fileOf("midi", blocks.values().join()));
            }
        }
    }

    void settingsOfOne_areCopiedIntoAFileThatIsWhole()
    {
        put(midiPath(), fileOf("midi", block("1", ",,") + block("2", ",,")).chopped(5));
        QVERIFY(copyMidiSettings(1, {2}).text().startsWith("The end of spartiti/midi.js is missing."));
        MidiTable table;
        QVERIFY(readMidiFile(table).ok() && table.endMissing); // which a person is told
        QVERIFY(writeMidiFile(table, 1, fieldsOf("5")).ok() && !table.endMissing);
        QCOMPARE(copyMidiSettings(7, {2}).text(), "Song 7 has no MIDI settings.");
        const FullDisk disk(0);
        QCOMPARE(copyMidiSettings(1, {2}).kind, Result::Kind::Unwritable);
    }

    void largestTable_isReadAndTakesNoMore()
    {
        const QByteArray blocks = block("1", "000,000,000").repeated(MidiTable::lastBlock);
        put(midiPath(), fileOf("midi", blocks));
        MidiTable table;
        QVERIFY(readMidiFile(table).ok() && table.midiBlockCount == MidiTable::lastBlock);
        QCOMPARE(writeMidiFile(table, 2, {}).kind, Result::Kind::Refused);
        put(midiPath(), fileOf("midi", blocks + block("2", "000,000,000")));
        QCOMPARE(readMidiFile(table).kind, Result::Kind::TooLarge);
    }
};

QTEST_GUILESS_MAIN(MidiFileTest)
#include "midi_file_test.moc"

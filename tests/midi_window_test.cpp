#include "files/data_folder.h"
#include "main/Form1.h"
#include "midi/midi_box.h"
#include "support/windows.h"

#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QLabel>
#include <QScrollBar>

static MidiBox *box(const QString &name)
{
    return control<MidiBox>("midifrm", name);
}

static QString firstRow()
{
    return box("MSB(1)")->text() + '|' + box("LSB(1)")->text() + '|' + box("PC(1)")->text();
}

static void type(const QString &name, const QString &text)
{
    box(name)->selectAll();
    QTest::keyClicks(box(name), text);
}

static QByteArray block(const QByteArray &number, const QByteArray &firstRow)
{
    return '"' + number + "\",\r\n\"" + firstRow + "\",\r\n"
        + QByteArray("\"000,000,000\",\r\n").repeated(15);
}

static QByteArray fileOf(const QByteArray &blocks)
{
    return "var midi = [\r\n" + blocks + " ];\r\n";
}

// The main window on an archive of three titles, "One" to "Three", of which the last is on display.
struct OpenedArchive {
    TestFolder folder;
    Form1 form1;

    OpenedArchive()
    {
        putArchive({"One|||0", "Two|||0", "Three|||0"});
        form1.show();
    }
};

class MidiWindowTest : public QObject
{
    Q_OBJECT
private slots:
    void first_save_begins_the_file();
    void file_is_shown_and_kept_until_saved();
    void window_keeps_its_song_when_the_main_window_moves_on();
    void no_settings_are_lost_data();
    void no_settings_are_lost();
};

void MidiWindowTest::file_is_shown_and_kept_until_saved()
{
    OpenedArchive archive;
    const QByteArray before = fileOf(block("003", "12345,,x y,7") + block("2", "7"));
    put(midiPath(), before);
    for (int round = 0; round < 2; round += 1) {
        chooseMenu("midi");
        QTest::keyClick(windowNamed("midifrm"), Qt::Key_Escape);
        QCOMPARE(control<QLabel>("midifrm", "Label5")->text(), "Three");
        QCOMPARE(firstRow(), "123||x y");
        click("midifrm", "Command3");
        QCOMPARE(firstRow(), "000|000|000");
        click("midifrm", "Command1");
        QVERIFY(!windowNamed("midifrm") && contents(midiPath()) == before);
    }
}

void MidiWindowTest::first_save_begins_the_file()
{
    OpenedArchive archive;
    control<QScrollBar>("Form1", "VScroll1")->setValue(4); // the spare position
    chooseMenu("midi");
    QVERIFY(QTest::qWaitForWindowActive(windowNamed("midifrm")));
    QCOMPARE(control<QLabel>("midifrm", "Label5")->text(), "Title");
    const MidiBox *first = box("MSB(1)");
    QCOMPARE(first->accessibleName(), "Channel 1, bank select MSB, 0 to 127");
    type("MSB(1)", "1a2,\"-");
    QVERIFY(first->text() == "12" && first->accessibleDescription().isEmpty());
    type("MSB(1)", "1289");
    QVERIFY(first->text() == "128" && first->accessibleDescription() == "Not in 0 to 127");
    QVERIFY(first->palette().color(QPalette::Text) != box("LSB(1)")->palette().color(QPalette::Text));

    // A click takes hold of the text, so that what comes next replaces it.
    click("midifrm", "PC(1)");
    QApplication::clipboard()->setText(" 127\t");
    QTest::keySequence(box("PC(1)"), QKeySequence::Paste);
    QTest::keySequence(box("PC(1)"), QKeySequence::Paste);
    BoxAnswers answers;
    click("midifrm", "Command2");
    QCOMPARE(answers.texts + answers.titles, QStringList({"Successfully saved message", "Tessaline"}));
    QCOMPARE(contents(midiPath()), fileOf(block("4", "128,000,127")));
}

void MidiWindowTest::window_keeps_its_song_when_the_main_window_moves_on()
{
    OpenedArchive archive;
    const QByteArray one = block("1", "1,1,1");
    put(midiPath(), fileOf(one + block("3", "3,3,3")));
    chooseMenu("midi");
    control<QScrollBar>("Form1", "VScroll1")->setValue(1);
    BoxAnswers answers;
    for (const char *value : {"4", "55"}) {
        type("PC(1)", value);
        chooseMenu("midi");
        QCOMPARE(control<QLabel>("midifrm", "Label5")->text(), "Three");
        click("midifrm", "Command2");
        QCOMPARE(contents(midiPath()), fileOf(one + block("3", QByteArray("3,3,") + value)));
    }
    const FullDisk full(100);
    type("PC(1)", "6");
    click("midifrm", "Command2");
    QVERIFY(answers.texts[2].startsWith("The settings were not saved; the file is as it was before."));
    QCOMPARE(contents(midiPath()), fileOf(one + block("3", "3,3,55")));
}

void MidiWindowTest::no_settings_are_lost_data()
{
    QTest::addColumn<QByteArray>("opened");
    QTest::addColumn<QByteArray>("meanwhile"); // what another program then leaves; empty: no file
    QTest::addColumn<QString>("told"); // how the first message begins
    QTest::addColumn<QByteArray>("after");
    const QByteArray one = block("1", "1,1,1"), three = block("3", "1,2,3"), mine = block("3", "1,2,9");
    const QByteArray whole = fileOf(one + three), cut = whole.chopped(5), bad = whole.first(99);
    const QByteArray twice = fileOf(three + three), same = fileOf(one + block("3", "5,5,5"));
    const QByteArray other = fileOf(block("1", "8,8,8") + three);
    const QString done = "Successfully saved", asked = "Another program has changed this song's";
    const QString refused = "The settings were not saved. ";
    QTest::newRow("damaged") << bad << bad << "spartiti/midi.js is damaged" << bad;
    QTest::newRow("end missing") << cut << cut << "The end of spartiti/midi.js" << fileOf(one + mine);
    QTest::newRow("doubled") << twice << twice << "spartiti/midi.js holds settings for this song in 2"
                             << fileOf(block("3", "11,22,9") + block("3", "11,22,9"));
    QTest::newRow("removed") << whole << QByteArray() << done << fileOf(one + mine);
    QTest::newRow("another song") << whole << other << done << fileOf(block("1", "8,8,8") + mine);
    QTest::newRow("this song") << whole << same << asked << same;
    QTest::newRow("end lost") << whole << cut << refused << cut;
    QTest::newRow("damaged meanwhile") << whole << bad << refused << bad;
}

void MidiWindowTest::no_settings_are_lost()
{
    QFETCH(QByteArray, opened);
    QFETCH(QByteArray, meanwhile);
    QFETCH(QString, told);
    OpenedArchive archive;
    put(midiPath(), opened);
    using Answer = QMessageBox::StandardButton;
    BoxAnswers answers({told.startsWith("Another") ? Answer::No : Answer::Ok});
    chooseMenu("midi");
    type("PC(1)", "9");
    QFile::remove(midiPath());
    if (!meanwhile.isEmpty())
        put(midiPath(), meanwhile);
    click("midifrm", "Command2");
    QVERIFY2(answers.texts[0].startsWith(told), qPrintable(answers.texts[0]));
    QTEST(contents(midiPath()), "after");
    QCOMPARE(box("PC(1)")->text(), "9");
}

WINDOW_TEST_MAIN(MidiWindowTest)
#include "midi_window_test.moc"

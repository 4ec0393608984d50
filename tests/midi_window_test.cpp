#include "files/data_folder.h"
#include "main/Form1.h"
#include "midi/midi_box.h"
#include "support/windows.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QScrollBar>

static MidiBox *box(const QString &name)
{
    return control<MidiBox>("midifrm", name);
}

static QString textOf(const QString &name)
{
    return box(name)->text();
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
class OpenedArchive
{
public:
    OpenedArchive()
    {
        putArchive({"One|||0", "Two|||0", "Three|||0"});
        form1_.show();
    }

    void browseTo(int song) { control<QScrollBar>("Form1", "VScroll1")->setValue(song); }

private:
    TestFolder folder_;
    Form1 form1_;
};

class MidiWindowTest : public QObject
{
    Q_OBJECT
private slots:
    void place_data();
    void place();
    void without_a_file_all_is_at_its_default();
    void file_is_shown_as_it_is();
    void tab_key_goes_row_by_row();
    void typing_takes_three_digits_data();
    void typing_takes_three_digits();
    void values_above_127_are_marked_and_kept();
    void reset_and_esc_leave_the_file();
    void window_keeps_its_song_when_the_main_window_moves_on();
    void spare_position_is_saved_under_its_number();
    void irregular_file_is_told_data();
    void irregular_file_is_told();
    void file_changed_meanwhile_data();
    void file_changed_meanwhile();
    void failing_save_is_told();
};

void MidiWindowTest::place_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QRect>("twips"); // within the client area
    QTest::newRow("first box") << "MSB(1)" << QRect(1320, 600, 615, 390);
    QTest::newRow("last box") << "PC(16)" << QRect(6960, 5640, 615, 375);
    QTest::newRow("row 9") << "LSB(9)" << QRect(6120, 600, 615, 375);
    QTest::newRow("channel") << "Text1(15)" << QRect(4680, 5640, 495, 405);
    QTest::newRow("underline") << "Line2(10)" << QRect(6120, 1800, 600, 15);
    QTest::newRow("title") << "Label5" << QRect(240, 6960, 8175, 495);
    QTest::newRow("head") << "Label7" << QRect(3000, 0, 615, 375);
    QTest::newRow("reset") << "Command3" << QRect(3000, 7680, 2655, 855);
}

void MidiWindowTest::place()
{
    QFETCH(QString, name);
    QFETCH(QRect, twips);
    OpenedArchive archive;
    chooseMenu("midi");
    QWidget *window = windowNamed("midifrm");
    QWidget *found = control("midifrm", name);
    QCOMPARE(window->size(), QSize(576, 576));
    QCOMPARE(QRect(found->mapTo(window, QPoint(0, 0)), found->size()),
             (Place{twips.x(), twips.y(), twips.width(), twips.height()}.inPixels()));
}

void MidiWindowTest::without_a_file_all_is_at_its_default()
{
    OpenedArchive archive;
    chooseMenu("midi");
    QCOMPARE(windowNamed("midifrm")->windowTitle(), "Midi Device");
    QCOMPARE(control<QLabel>("midifrm", "Label5")->text(), "Title");
    for (int k = 1; k <= 16; k += 1) {
        QCOMPARE(control<TextBox>("midifrm", indexed("Text1", k - 1))->text(), QString::number(k));
        QVERIFY(!control("midifrm", indexed("Text1", k - 1))->isEnabled());
        for (const char *family : {"MSB", "LSB", "PC"})
            QCOMPARE(textOf(indexed(family, k)), "000");
    }
    QCOMPARE(box("MSB(3)")->accessibleName(), "Channel 3, bank select MSB, 0 to 127");
    QCOMPARE(box("PC(16)")->toolTip(), "Channel 16, program change, 0 to 127");

    type("MSB(1)", "121");
    type("LSB(16)", "5");
    BoxAnswers answers;
    click("midifrm", "Command2");
    QCOMPARE(answers.texts, QStringList("Successfully saved message"));
    QCOMPARE(answers.titles, QStringList("Tessaline"));
    QByteArray written = block("3", "121,000,000");
    written.replace(written.size() - 16, 16, "\"000,5,000\",\r\n");
    QCOMPARE(contents(midiPath()), fileOf(written));
}

void MidiWindowTest::file_is_shown_as_it_is()
{
    OpenedArchive archive;
    put(midiPath(), fileOf(block("9", "1,1,1") + block("003", "12345,,x y") + block("2", "7,8,9")));
    chooseMenu("midi");
    QCOMPARE(control<QLabel>("midifrm", "Label5")->text(), "Three");
    QLabel *count = windowNamed("midifrm")->findChild<QLabel *>("Label6");
    QCOMPARE(count->text(), "3");
    QVERIFY(!count->isVisible());
    QCOMPARE(textOf("MSB(1)"), "123");
    QCOMPARE(textOf("LSB(1)"), "");
    QCOMPARE(textOf("PC(1)"), "x y");
    QCOMPARE(textOf("PC(2)"), "000");

    click("midifrm", "Command1");
    QVERIFY(!windowNamed("midifrm"));
    archive.browseTo(1);
    chooseMenu("midi");
    QCOMPARE(control<QLabel>("midifrm", "Label5")->text(), "One");
    QCOMPARE(textOf("MSB(1)"), "000");
}

void MidiWindowTest::tab_key_goes_row_by_row()
{
    OpenedArchive archive;
    chooseMenu("midi");
    QVERIFY(QTest::qWaitForWindowActive(windowNamed("midifrm")));
    QStringList expected;
    for (int k = 1; k <= 16; k += 1) {
        expected += {indexed("MSB", k), indexed("LSB", k), indexed("PC", k)};
        if (k == 12)
            expected.removeLast();
    }
    expected += {"Command2", "Command1", "PC(12)", "Command3", "MSB(1)"};
    for (const QString &name : expected) {
        QCOMPARE(QApplication::focusWidget()->objectName(), name);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
}

void MidiWindowTest::typing_takes_three_digits_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("pasted");
    QTest::addColumn<QString>("after");
    QTest::newRow("a fourth") << ""
                              << "1234"
                              << ""
                              << "123";
    QTest::newRow("anything else") << ""
                                   << "a1,\"-2 \\e5"
                                   << ""
                                   << "125";
    QTest::newRow("paste with blanks") << ""
                                       << ""
                                       << " 121\t"
                                       << "121";
    QTest::newRow("paste behind") << "1"
                                  << ""
                                  << "x23456"
                                  << "123";
    QTest::newRow("paste into a full box") << "127"
                                           << ""
                                           << "5"
                                           << "127";
    QTest::newRow("other scripts' digits") << ""
                                           << ""
                                           << "١٢"
                                           << "";
}

void MidiWindowTest::typing_takes_three_digits()
{
    QFETCH(QString, before);
    QFETCH(QString, typed);
    QFETCH(QString, pasted);
    OpenedArchive archive;
    chooseMenu("midi");
    MidiBox *first = box("MSB(1)");
    first->setText(before);
    QTest::keyClicks(first, typed);
    if (!pasted.isEmpty()) {
        QApplication::clipboard()->setText(pasted);
        QTest::keySequence(first, QKeySequence::Paste);
    }
    QTEST(first->text(), "after");
}

void MidiWindowTest::values_above_127_are_marked_and_kept()
{
    OpenedArchive archive;
    chooseMenu("midi");
    const QColor usual = box("PC(5)")->palette().color(QPalette::Text);
    const auto check = [&](const QString &typed, bool marked) {
        type("PC(5)", typed);
        QCOMPARE(textOf("PC(5)"), typed);
        QCOMPARE(box("PC(5)")->palette().color(QPalette::Text) != usual, marked);
        QCOMPARE(box("PC(5)")->accessibleDescription(), marked ? "Not in 0 to 127" : "");
    };
    check("127", false);
    check("128", true);
    check("12", false);
    check("999", true);

    // A click takes hold of the text, so that what is typed next replaces it.
    click("midifrm", "MSB(8)");
    QTest::keyClicks(box("MSB(8)"), "7");
    QCOMPARE(textOf("MSB(8)"), "7");
    BoxAnswers answers;
    click("midifrm", "Command2");
    QVERIFY(contents(midiPath()).contains("\"000,000,999\",\r\n"));
    QVERIFY(contents(midiPath()).contains("\"7,000,000\",\r\n"));
}

void MidiWindowTest::reset_and_esc_leave_the_file()
{
    OpenedArchive archive;
    const QByteArray before = fileOf(block("3", "1,2,3"));
    put(midiPath(), before);
    chooseMenu("midi");
    click("midifrm", "Command3");
    QCOMPARE(textOf("MSB(1)") + textOf("LSB(1)") + textOf("PC(1)"), "000000000");
    click("midifrm", "Command1");
    QCOMPARE(contents(midiPath()), before);

    chooseMenu("midi");
    QCOMPARE(textOf("PC(1)"), "3");
    QTest::keyClick(windowNamed("midifrm"), Qt::Key_Escape);
    click("midifrm", "Command3");
    BoxAnswers answers;
    click("midifrm", "Command2");
    QCOMPARE(contents(midiPath()), fileOf(block("3", "000,000,000")));
}

void MidiWindowTest::window_keeps_its_song_when_the_main_window_moves_on()
{
    OpenedArchive archive;
    put(midiPath(), fileOf(block("1", "1,1,1") + block("3", "3,3,3")));
    chooseMenu("midi");
    type("PC(1)", "4");
    archive.browseTo(1);
    chooseMenu("midi");
    QCOMPARE(textOf("PC(1)"), "4");
    QCOMPARE(control<QLabel>("midifrm", "Label5")->text(), "Three");
    BoxAnswers answers;
    click("midifrm", "Command2");
    QCOMPARE(contents(midiPath()), fileOf(block("1", "1,1,1") + block("3", "3,3,4")));
    type("PC(1)", "5");
    click("midifrm", "Command2");
    QCOMPARE(contents(midiPath()), fileOf(block("1", "1,1,1") + block("3", "3,3,5")));
    QCOMPARE(answers.texts.size(), 2);
}

void MidiWindowTest::spare_position_is_saved_under_its_number()
{
    OpenedArchive archive;
    archive.browseTo(4);
    chooseMenu("midi");
    BoxAnswers answers;
    click("midifrm", "Command2");
    QCOMPARE(contents(midiPath()), fileOf(block("4", "000,000,000")));
}

void MidiWindowTest::irregular_file_is_told_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("told");
    QTest::addColumn<QString>("msb");
    QTest::addColumn<QString>("atSave");
    const QByteArray whole = fileOf(block("3", "1,2,3"));
    const QString damaged = "spartiti/midi.js is damaged and was not read. It is left as it is.";
    const QString done = "Successfully saved message";
    QTest::newRow("damaged") << whole.first(150) << damaged << "000"
                             << "The settings were not saved. " + damaged;
    QTest::newRow("end missing") << whole.chopped(5)
                                 << "The end of spartiti/midi.js is missing or is not as it should be. The "
                                    "settings of 1 songs were read, and a Save would keep these alone."
                                 << "1" << done;
    QTest::newRow("doubled") << fileOf(block("3", "1,2,3") + block("3", "4,5,6"))
                             << "spartiti/midi.js holds settings for this song in 2 places. They are shown "
                                "joined, and a Save would put what is shown in each place."
                             << "14" << done;
}

void MidiWindowTest::irregular_file_is_told()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, told);
    QFETCH(QString, atSave);
    OpenedArchive archive;
    put(midiPath(), bytes);
    BoxAnswers answers;
    chooseMenu("midi");
    QCOMPARE(answers.texts, QStringList(told));
    QTEST(textOf("MSB(1)"), "msb");
    QCOMPARE(control<QLabel>("midifrm", "Label5")->text(), "Three");
    click("midifrm", "Command2");
    QCOMPARE(answers.texts, (QStringList{told, atSave}));
    if (told == atSave.last(told.size()))
        QCOMPARE(contents(midiPath()), bytes);
}

void MidiWindowTest::file_changed_meanwhile_data()
{
    QTest::addColumn<QByteArray>("meanwhile"); // empty: the file is removed
    QTest::addColumn<QMessageBox::StandardButton>("answer");
    QTest::addColumn<int>("boxes");
    QTest::addColumn<QByteArray>("after");
    const QByteArray three = block("3", "1,2,9");
    const QByteArray one = block("1", "1,1,1");
    const QByteArray other = block("1", "8,8,8") + block("3", "1,2,3") + block("7", "7,7,7");
    const QByteArray same = block("1", "1,1,1") + block("3", "5,5,5");
    QTest::newRow("removed") << QByteArray() << QMessageBox::Ok << 1 << fileOf(one + three);
    QTest::newRow("other songs") << fileOf(other) << QMessageBox::Ok << 1
                                 << fileOf(block("1", "8,8,8") + three + block("7", "7,7,7"));
    QTest::newRow("this song, replaced") << fileOf(same) << QMessageBox::Yes << 2 << fileOf(one + three);
    QTest::newRow("this song, kept") << fileOf(same) << QMessageBox::No << 1 << fileOf(same);
    QTest::newRow("cut") << fileOf(one).chopped(5) << QMessageBox::Ok << 1 << fileOf(one).chopped(5);
    QTest::newRow("damaged") << fileOf(one).first(99) << QMessageBox::Ok << 1 << fileOf(one).first(99);
}

void MidiWindowTest::file_changed_meanwhile()
{
    QFETCH(QByteArray, meanwhile);
    QFETCH(QMessageBox::StandardButton, answer);
    OpenedArchive archive;
    put(midiPath(), fileOf(block("1", "1,1,1") + block("3", "1,2,3")));
    chooseMenu("midi");
    type("PC(1)", "9");
    if (meanwhile.isEmpty())
        QVERIFY(QFile::remove(midiPath()));
    else
        put(midiPath(), meanwhile);
    BoxAnswers answers({answer});
    click("midifrm", "Command2");
    QTEST(static_cast<int>(answers.texts.size()), "boxes");
    QTEST(contents(midiPath()), "after");
    QCOMPARE(textOf("PC(1)"), "9");
}

void MidiWindowTest::failing_save_is_told()
{
    OpenedArchive archive;
    const QByteArray before = fileOf(block("3", "1,2,3"));
    put(midiPath(), before);
    chooseMenu("midi");
    type("PC(1)", "9");
    BoxAnswers answers;
    {
        const FullDisk full(100);
        click("midifrm", "Command2");
    }
    QCOMPARE(answers.texts.size(), 1);
    QVERIFY(answers.texts[0].startsWith("The settings were not saved; the file is as it was before."));
    QCOMPARE(contents(midiPath()), before);
    QCOMPARE(textOf("PC(1)"), "9");
    click("midifrm", "Command2");
    QCOMPARE(contents(midiPath()), fileOf(block("3", "1,2,9")));
}

WINDOW_TEST_MAIN(MidiWindowTest)
#include "midi_window_test.moc"

#include "files/data_folder.h"
#include "support/windows.h"

#include <QClipboard>

static const QString window = "midifrm";

// The file as opened, what another program then leaves (nothing: no file), how the first message begins, and
// the file after the Save.
using Lossless = std::tuple<QByteArray, QByteArray, QString, QByteArray>;

class MidiWindowTest : public WindowTest
{
    Q_OBJECT
private slots:
    void file_isShownAndKeptUntilSaved()
    {
        const Program program;
        const QByteArray before = fileOf("midi", midiBlock("003", "12345,,x y,7") + midiBlock("2", "7"));
        put(midiPath(), before);
        chooseMenu("midi");
        click(window, "Reset");
        QCOMPARE(textOf(window, "PC(1)"), "000");
        click(window, "Esc");
        chooseMenu("midi");
        QCOMPARE(textOf(window, "MSB(1)") + textOf(window, "LSB(1)") + textOf(window, "PC(1)"), "123x y");
        QCOMPARE(contents(midiPath()), before);
    }

    void firstSave_beginsTheFile()
    {
        const Program program;
        press("Form1", "VScroll1", Qt::Key_End); // the spare position
        chooseMenu("midi");
        waitUntilActive(window);
        type(window, "MSB(1)", "1a2,\"-89");
        QVERIFY(!control(window, "MSB(1)")->accessibleDescription().isEmpty());
        click(window, "PC(1)"); // takes hold of the text, so that what comes next replaces it
        QGuiApplication::clipboard()->setText(" 127\t");
        for (int i = 0; i < 2; i += 1)
            press(window, "PC(1)", Qt::Key_V, Qt::ControlModifier);
        click(window, "Command2");
        QCOMPARE(program.told, QStringList("Successfully saved message"));
        QCOMPARE(contents(midiPath()), fileOf("midi", midiBlock("4", "128,000,127")));
    }

    void window_keepsItsSongWhenTheMainWindowMovesOn()
    {
        Program program;
        const auto fileWith = [](const char *three) {
            return fileOf("midi", midiBlock("1", "1,1,1") + midiBlock("3", three));
        };
        put(midiPath(), fileWith("3,3,3"));
        chooseMenu("midi");
        press("Form1", "VScroll1", Qt::Key_Home);
        type(window, "PC(1)", "4");
        chooseMenu("midi");
        click(window, "Save");
        type(window, "PC(1)", "6");
        clickWithFullDisk(window, "Save", 100);
        QVERIFY(program.told.last().startsWith("The settings were not saved; the file is as it was before."));
        Module1.archiveRefusal = "The archive is damaged.";
        QVERIFY(program.boxesOf(window, "Save").endsWith(std::exchange(Module1.archiveRefusal, {})));
        QCOMPARE(contents(midiPath()), fileWith("3,3,4"));
        click(window, "Save"); // it begins with what the first has written
        QCOMPARE(contents(midiPath()), fileWith("3,3,6"));
    }

    void noSettings_areLost_data()
    {
        const QByteArray one = midiBlock("1", "1,1,1"), three = midiBlock("3", "1,2,3"),
                         mine = midiBlock("3", "1,2,9");
        const QByteArray whole = fileOf("midi", one + three), cut = whole.chopped(5), bad = whole.first(99);
        const QByteArray saved = fileOf("midi", one + mine), two = fileOf("midi", three + three);
        const QByteArray joined = fileOf("midi", midiBlock("3", "11,22,9").repeated(2));
        const QByteArray same = fileOf("midi", one + midiBlock("3", "5,5,5")),
                         other = midiBlock("1", "8,8,8");
        const QString done = "Successfully saved", refused = "The settings were not saved. ";
        tableOf<Lossless>(
            {{"damaged", {bad, bad, "spartiti/midi.js is damaged", bad}},
             {"its end is missing", {cut, cut, "The end of spartiti/midi.js", saved}},
             {"two blocks", {two, two, "spartiti/midi.js holds settings for this song in 2", joined}},
             {"goes", {whole, {}, done, saved}},
             {"another song changed",
              {whole, fileOf("midi", other + three), done, fileOf("midi", other + mine)}},
             {"this song changed", {whole, same, "Another program has changed this song's", same}},
             {"loses its end", {whole, cut, refused, cut}},
             {"is damaged meanwhile", {whole, bad, refused, bad}}});
    }
    void noSettings_areLost()
    {
        const auto [opened, meanwhile, told, after] = tableRow<Lossless>();
        Program program;
        put(midiPath(), opened);
        chooseMenu("midi");
        type(window, "PC(1)", "9");
        QFile::remove(midiPath());
        if (!meanwhile.isEmpty())
            put(midiPath(), meanwhile);
        program.answers = {enterKey};
        click(window, "Command2");
        QCOMPARE(program.told.value(0).first(told.size()), told);
        QCOMPARE(contents(midiPath()), after);
        QCOMPARE(textOf(window, "PC(1)"), "9");
    }
};

QTEST_MAIN(MidiWindowTest)
#include "midi_window_test.moc"

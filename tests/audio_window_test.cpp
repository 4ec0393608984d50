#include "support/windows.h"

// The program on record 3 of three, with a recording to pick.
struct Stand : Program {
    QString song = QDir::current().filePath("songs/a.mp3");

    Stand()
    {
        put("spartiti/generi.js", fileOf("generi", linesOf(QString("Rock & Roll|").repeated(32))));
        put("spartiti/audio/3.mp3", "old");
        put(song, "song a");
    }
};

static void pickSong()
{
    click("Form1", "Command2");
    openFolder("mp3", "songs");
    clickFile("mp3", "a.mp3");
}

class AudioWindowTest : public WindowTest
{
    Q_OBJECT
private slots:
    void oneClick_storesTheCategoryOfOneRecordAndTheRecordingOfAnother()
    {
        const Stand stand;
        pickSong();
        QCOMPARE(textOf("mp3", "Command3(32)") + textOf("mp3", "Command3(33)"), "Rock && Roll");
        press("Form1", "VScroll1", Qt::Key_Up);
        click("mp3", "Command3(33)");
        QVERIFY(!windowNamed("mp3"));
        QVERIFY(Module1.recCategory[3] == "33" && Module1.archiveChanged);
        QCOMPARE(contents("spartiti/audio/2.mp3") + contents("spartiti/audio/3.mp3"), "song aold");
        click("Form1", "Command2");
        click("mp3", "Command3(1)");
        QCOMPARE(Module1.recCategory[2], "1");
        QVERIFY(stand.told.isEmpty());
    }

    void failure_harmsNeitherCategoryNorRecording()
    {
        Stand stand;
        pickSong();
        Module1.archiveRefusal = "The archive is damaged.";
        QVERIFY(stand.boxesOf("mp3", "Command3(9)").endsWith(std::exchange(Module1.archiveRefusal, {})));
        QFile::remove(stand.song);
        QVERIFY(stand.boxesOf("mp3", "Command3(9)")
                    .startsWith("Neither the category nor the recording was stored;"));
        QVERIFY(Module1.recCategory[3] == "7" && !Module1.archiveChanged);
        QCOMPARE(contents("spartiti/audio/3.mp3"), "old");
        windowNamed("mp3")->close();
        click("Form1", "Command2"); // the pick has gone with the window
        QCOMPARE(stand.boxesOf("mp3", "Command3(1)"), "You must select an mp3 file!");
    }

    void badCategoriesFile_isToldOnceWithItsLine()
    {
        const Program program;
        put("spartiti/generi.js", fileOf("generi", linesOf("Rock|Waltz")) + "show();\r\n");
        click("Form1", "Mp3");
        QString texts;
        for (const int k : {1, 2, 3, 33})
            texts += textOf("mp3", indexed("Command3", k));
        QCOMPARE(texts, "RockWaltz333");
        QCOMPARE(program.told.size(), 1);
        QVERIFY(program.told[0].contains("line 4 "));
    }
};

QTEST_MAIN(AudioWindowTest)
#include "audio_window_test.moc"

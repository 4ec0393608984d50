#include "archive/Module1.h"
#include "main/Form1.h"
#include "support/lists.h"

#include <QDir>
#include <QLabel>
#include <QPushButton>

// The main window on record 3 of three, with a recording to pick.
struct Stand {
    TestFolder folder;
    QString song = QDir::current().filePath("songs/a.mp3");
    Form1 form1;
    BoxAnswers boxes;

    Stand()
    {
        putArchive({"One|||0", "Two|||0", "Three|||7"});
        put("spartiti/generi.js",
            "head\r\n" + QByteArray("\"Rock & Roll\",\r\n").repeated(32) + "\"\",\r\n];\r\n");
        put("spartiti/audio/3.mp3", "old");
        put(song, "song a");
        form1.show();
    }
};

static void pickSong()
{
    click("Form1", "Command2");
    openFolder("mp3", "songs");
    clickFile("mp3", "a.mp3");
}

static QString caption(int index)
{
    return control<QPushButton>("mp3", indexed("Command3", index))->text();
}

class AudioWindowTest : public QObject
{
    Q_OBJECT
private slots:
    void oneClick_storesTheCategoryOfOneRecordAndTheRecordingOfAnother()
    {
        const Stand stand;
        pickSong();
        QCOMPARE(caption(32), "Rock && Roll");
        QCOMPARE(caption(33), QString());
        QTest::keyClick(control("Form1", "VScroll1"), Qt::Key_Up);
        click("mp3", indexed("Command3", 33));
        QVERIFY(!windowNamed("mp3"));
        QCOMPARE(Module1.recCategory[3], "33");
        QVERIFY(Module1.archiveChanged);
        QCOMPARE(contents("spartiti/audio/2.mp3"), "song a");
        QCOMPARE(contents("spartiti/audio/3.mp3"), "old");
        click("Form1", "Command2");
        click("mp3", indexed("Command3", 1));
        QCOMPARE(Module1.recCategory[2], "1");
        QVERIFY(stand.boxes.texts.isEmpty());
    }

    void closing_keepsThePickAndTheCloseBoxDropsIt()
    {
        const Stand stand;
        pickSong();
        click("mp3", "Command1");
        QFile::remove("spartiti/generi.js");
        click("Form1", "Command2");
        QCOMPARE(control<QLabel>("mp3", "Label1")->text(), stand.song);
        QCOMPARE(caption(1), "Rock && Roll");
        windowNamed("mp3")->close();
        click("Form1", "Command2");
        QCOMPARE(caption(1), "1");
        QCOMPARE(stand.boxes.texts,
                 QStringList("A category without a name is shown by its number.\n"
                             "spartiti/generi.js: there is no such file"));
    }

    void failure_harmsNeitherCategoryNorRecording()
    {
        const Stand stand;
        pickSong();
        openFolder("mp3", QDir::current().dirName());
        click("mp3", indexed("Command3", 9));
        pickSong();
        QFile::remove(stand.song);
        click("mp3", indexed("Command3", 9));
        QCOMPARE(
            stand.boxes.texts,
            QStringList({"You must select an mp3 file!",
                         "Neither the category nor the recording was stored; both are as they were before.\n"
                             + stand.song + ": there is no such file"}));
        QVERIFY(windowNamed("mp3"));
        QCOMPARE(Module1.recCategory[3], "7");
        QVERIFY(!Module1.archiveChanged);
        QCOMPARE(contents("spartiti/audio/3.mp3"), "old");
    }
};

WINDOW_TEST_MAIN(AudioWindowTest)
#include "audio_window_test.moc"

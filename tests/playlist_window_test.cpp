#include "controls/combo_box.h"
#include "support/windows.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QLineEdit>

static const QString path = "spartiti/playlist.js";
static const QString window = "playlistfrm";
static const QByteArray ab = "\"a\",\"1,2,3,4,5,#\",\r\n\"b\",\"2,,x,-1,8000,0,5,#\",\r\n";

// The playlist window on a file of these lines, or on none where they are null.
struct Playlisting : Program {
    explicit Playlisting(const QByteArray &lines)
        : Program(archiveOf({"beta|||0", "Álpha|||0", "beta|||0", "|||0", "alpine|||0"}))
    {
        if (!lines.isNull())
            put(path, fileOf("playlist", lines));
        chooseMenu("playlist");
        waitUntilActive(window);
    }

    // Clicks, and gives the text of the last box that came so far.
    QString boxOf(const QString &button, Answer answer = Answer::Ok)
    {
        answers = {answer};
        click(window, button);
        waitUntilActive(window);
        return told.constLast();
    }
};

static ComboBox *combo()
{
    return control<ComboBox>(window, "Combo1");
}

// The rows being edited and the name of the playlist.
static QString edited()
{
    return (shownRows(window, "List2") + QStringList(textOf(window, "Text1"))).join('|');
}

// "count: names that Combo1 offers: its text".
static QString stored()
{
    QString names;
    for (int row = 0; row < combo()->count(); row += 1)
        names += ' ' + combo()->itemText(row);
    return textOf(window, "Label1") + ':' + names + ": " + combo()->currentText();
}

static void pick(int row)
{
    QTest::mouseClick(combo(), Qt::LeftButton, {}, QPoint(combo()->width() - 8, 10));
    QTest::qWait(2 * QApplication::doubleClickInterval()); // until then a click on a row is none
    const QRect place = combo()->view()->visualRect(combo()->model()->index(row, 0));
    QTest::mouseMove(combo()->view()->viewport(), place.center());
    QTest::mouseClick(combo()->view()->viewport(), Qt::LeftButton, {}, place.center());
}

class PlaylistWindowTest : public WindowTest
{
    Q_OBJECT
private slots:
    void init() { QApplication::setDoubleClickInterval(10); }

    void onlyAChoiceFromTheList_isAPick()
    {
        const Playlisting playlisting(ab + "\"a\",\"3,2,#\",\r\n");
        QTest::keyClicks(combo()->lineEdit(), "a");
        QTest::keyClick(combo(), Qt::Key_Return);
        QCOMPARE(edited() + ' ' + stored(), " 3: a b a: Playlista");
        QTest::keyClick(combo(), Qt::Key_Down);
        QTest::keyClick(combo()->view(), Qt::Key_Down);
        QTest::keyClick(combo()->view(), Qt::Key_Return);
        QCOMPARE(edited() + ' ' + stored(), "Álpha|||alpine|b 3: a b a: b");
        pick(0);
        QCOMPARE(edited(), "beta|Álpha|a"); // the last of that name
    }

    void adding_takesTheRecordAsItNowStands()
    {
        Playlisting playlisting({});
        QCOMPARE(contents(path), fileOf("playlist", ""));
        clickRow(window, "List1", 3);
        click(window, "Command2");
        Module1.recTitle[5] = "renamed";
        Module1.recTitle[4] = "not empty";
        clickRow(window, "List1", 2);
        click(window, "Command2");
        Module1.recNumber[2] = "";
        clickRow(window, "List1", 1);
        press(window, "List1", Qt::Key_Enter);
        Module1.recTitle[4] = "";
        clickRow(window, "List1", 0);
        press(window, "List1", Qt::Key_Return);
        type(window, "Text1", "x\"\\");
        QCOMPARE(edited(), "beta _3| _0|Álpha _2| _4|x'/");
        QCOMPARE(playlisting.boxOf("Command1"), "Successfully saved");
        QCOMPARE(contents(path), fileOf("playlist", "\"x'/\",\"3,,,4,#\",\r\n"));
        click(window, "Command7");
        chooseMenu("playlist");
        QCOMPARE(edited() + ' ' + stored(), " 1: x'/: Playlist");
    }

    void rowsMoveAndGo_withTheirSlots()
    {
        Playlisting playlisting(ab);
        pick(0);
        clickRow(window, "List2", 1);
        click(window, "Command3");
        click(window, "Command3"); // at the top nothing more happens
        clickRow(window, "List2", 0);
        press(window, "List2", Qt::Key_Down, Qt::AltModifier);
        click(window, "Command4");
        clickRow(window, "List2", 4);
        press(window, "List2", Qt::Key_Down, Qt::AltModifier); // at the bottom neither
        press(window, "List2", Qt::Key_Up, Qt::AltModifier);
        clickRow(window, "List2", 0);
        press(window, "List2", Qt::Key_Delete);
        click(window, "Command6"); // no row is selected
        QCOMPARE(edited(), "beta|Álpha|alpine||a");
        playlisting.boxOf("Command1");
        pick(1);
        clickRow(window, "List2", 3);
        click(window, "Command3"); // past an empty slot
        click(window, "Command6"); // behind an empty slot
        playlisting.boxOf("Command1", Answer::Yes);
        QVERIFY(playlisting.told.value(1).contains("not in the archive"));
        QCOMPARE(contents(path), fileOf("playlist", "\"a\",\"3,2,5,4,#\",\r\n\"b\",\"2,,,#\",\r\n"));
    }

    void aPlaylist_isSavedPickedChangedAndDeleted()
    {
        Playlisting playlisting(ab);
        QCOMPARE(playlisting.boxOf("Command1"), "You must type a name for the playlist");
        click(window, "Command5");
        type(window, "Text1", "];");
        QVERIFY(playlisting.boxOf("Command1").startsWith("A playlist cannot have this name"));
        type(window, "Text1", "new");
        playlisting.boxOf("Command1");
        QCOMPARE(stored(), "2: a b new: ");
        pick(2); // known, though added by this very Save
        clickRow(window, "List1", 0);
        click(window, "Command2");
        playlisting.boxOf("Command1");
        playlisting.boxOf("Command1"); // nothing is shown any more: one more of that name
        QCOMPARE(contents(path), fileOf("playlist", ab + "\"new\",\"4,#\",\r\n\"new\",\"4,#\",\r\n"));
        QCOMPARE(playlisting.boxOf("Command8"), "You must select a playlist");
        pick(2);
        QCOMPARE(playlisting.boxOf("Command8", Answer::No), "Delete the playlist new?");
        QCOMPARE(stored(), "3: a b new: new");
        playlisting.boxOf("Command8", Answer::Yes);
        QCOMPARE(contents(path), fileOf("playlist", ab));
        QCOMPARE(edited() + ' ' + stored(), " 2: a b: ");
    }

    void moreSongsThanThereIsRoomFor_areRefused()
    {
        const QByteArray songs = QByteArray("5,").repeated(1000) + "#\",\r\n";
        Playlisting playlisting("\"a\",\"" + songs + "\"b\",\"1," + songs);
        pick(0);
        QVERIFY(playlisting.boxOf("Command2").startsWith("The playlist is full"));
        pick(1); // refused too
        QCOMPARE(edited() + ' ' + stored(), QString("alpine|").repeated(1000) + "a 2: a b: a");
    }

    void whatGoesWrong_harmsNoPlaylist()
    {
        Playlisting playlisting(ab);
        put(path, fileOf("playlist", ab).chopped(10));
        type(window, "Text1", "x");
        QVERIFY(playlisting.boxOf("Command1").startsWith("Nothing was changed. spartiti/playlist.js is"));
        QCOMPARE(contents(path), fileOf("playlist", ab).chopped(10));
        QVERIFY(QFile::remove(path)); // what was read last is written again
        pick(0);
        Module1.archiveRefusal = "The archive is damaged.";
        QVERIFY(playlisting.boxOf("Command1").endsWith(Module1.archiveRefusal));
        Module1.archiveRefusal.clear();
        clickWithFullDisk(window, "Command1");
        QVERIFY(playlisting.told.last().startsWith("The playlist was not saved. The file is"));
        QCOMPARE(stored(), "2: a b: a");
        playlisting.boxOf("Command1");
        QCOMPARE(contents(path),
                 fileOf("playlist", "\"a\",\"1,2,3,4,5,#\",\r\n" + ab.sliced(ab.indexOf("\"b\""))));
        click(window, "Command7");
        QVERIFY(QFile::remove(path) && QFile::link("playlist.js", path)); // there, but out of reach
        chooseMenu("playlist");
        QVERIFY(playlisting.told.last().startsWith("spartiti/playlist.js cannot be read"));
    }
};

QTEST_MAIN(PlaylistWindowTest)
#include "playlist_window_test.moc"

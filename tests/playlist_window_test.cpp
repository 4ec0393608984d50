#include "archive/archive_file.h"
#include "controls/combo_box.h"
#include "playlists/playlistfrm.h"
#include "support/windows.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>

#include <memory>

static const QString path = "spartiti/playlist.js";
static const QString window = "playlistfrm";
static const QByteArray ab =
    "var playlist = [\r\n\"a\",\"1,2,3,4,5,#\",\r\n\"b\",\"2,,x,-1,8000,0,5,#\",\r\n";

static QListWidget *list(const QString &name)
{
    return control<QListWidget>(window, name);
}

static ComboBox *combo()
{
    return control<ComboBox>(window, "Combo1");
}

// "rows of List2 | name", and "count: names that Combo1 offers: its text".
static QStringList shown()
{
    QStringList edited;
    for (int row = 0; row < list("List2")->count(); row += 1)
        edited += list("List2")->item(row)->text();
    edited += control<QLineEdit>(window, "Text1")->text();
    QString stored = control<QLabel>(window, "Label1")->text() + ':';
    for (int row = 0; row < combo()->count(); row += 1)
        stored += ' ' + combo()->itemText(row);
    return {edited.join('|'), stored + ": " + combo()->currentText()};
}

static QPoint select(const QString &name, int row)
{
    list(name)->scrollToItem(list(name)->item(row));
    const QPoint place = list(name)->visualItemRect(list(name)->item(row)).center();
    QTest::mouseClick(list(name)->viewport(), Qt::LeftButton, {}, place);
    return place;
}

static void add(int row)
{
    select("List1", row);
    click(window, "Command2");
}

static void type(const QString &name)
{
    control<QLineEdit>(window, "Text1")->selectAll();
    QTest::keyClicks(control(window, "Text1"), name);
}

static void pick(int row)
{
    QTest::mouseClick(combo(), Qt::LeftButton, {}, QPoint(combo()->width() - 8, 10));
    QTest::qWait(2 * QApplication::doubleClickInterval()); // until then a click on a row is none
    const QRect place = combo()->view()->visualRect(combo()->model()->index(row, 0));
    QTest::mouseMove(combo()->view()->viewport(), place.center());
    QTest::mouseClick(combo()->view()->viewport(), Qt::LeftButton, {}, place.center());
}

// Clicks, and gives the texts and titles of the boxes that came.
static QStringList boxesOf(const QString &button, QMessageBox::StandardButton answer = QMessageBox::Ok)
{
    const BoxAnswers answers({answer});
    click(window, button);
    waitUntilActive(window);
    return answers.texts + answers.titles;
}

class PlaylistWindowTest : public QObject
{
    Q_OBJECT

    // Opens the window on this file, or on none where it is empty.
    void open(const QByteArray &file)
    {
        folder.reset();
        folder = std::make_unique<TestFolder>();
        putArchive({"beta|||0", "Álpha|||0", "beta|||0", "|||0", "alpine|||0"});
        QVERIFY(loadArchive().result.ok());
        if (!file.isEmpty())
            put(path, file);
        form = std::make_unique<playlistfrm>();
        const BoxAnswers answers;
        form->show();
        waitUntilActive(window);
    }

    std::unique_ptr<TestFolder> folder;
    std::unique_ptr<playlistfrm> form;

private slots:
    void cleanup() { form.reset(); }

    void onlyAChoiceFromTheList_isAPick()
    {
        QApplication::setDoubleClickInterval(10);
        open(ab + "\"a\",\"3,2,#\",\r\n ];\r\n");
        combo()->lineEdit()->selectAll();
        QTest::keyClicks(combo()->lineEdit(), "a");
        QTest::keyClick(combo(), Qt::Key_Return);
        QCOMPARE(shown(), QStringList({"", "3: a b a: a"}));
        QTest::keyClick(combo(), Qt::Key_Down);
        QTest::keyClick(combo()->view(), Qt::Key_Down);
        QTest::keyClick(combo()->view(), Qt::Key_Return);
        QCOMPARE(shown(), QStringList({"Álpha|||alpine|b", "3: a b a: b"}));
        pick(0);
        QCOMPARE(shown(), QStringList({"beta|Álpha|a", "3: a b a: a"})); // the last of that name
        click(window, "Command5");
        pick(0);
        QCOMPARE(shown(), QStringList({"beta|Álpha|a", "3: a b a: a"}));
    }

    void adding_takesTheRecordAsItNowStands()
    {
        open({});
        QCOMPARE(contents(path), "var playlist = [\r\n ];\r\n");
        add(3);
        Module1.recTitle[5] = "renamed";
        Module1.recTitle[4] = "not empty";
        add(2);
        Module1.recNumber[2] = "";
        QTest::mouseDClick(list("List1")->viewport(), Qt::LeftButton, {}, select("List1", 1));
        QTest::keyClick(list("List1"), Qt::Key_Enter);
        Module1.recTitle[4] = "";
        add(0);
        type("x\"\\");
        QCOMPARE(shown(), QStringList({"beta _3| _0|Álpha _2|Álpha _2| _4|x'/", "0:: Playlist"}));
        Module1.recNumber[2] = "2";
        QCOMPARE(boxesOf("Command1"), QStringList({"Successfully saved", "Ok!"}));
        QCOMPARE(contents(path), "var playlist = [\r\n\"x'/\",\"3,,,,4,#\",\r\n ];\r\n");
        click(window, "Command7");
        form->show();
        QCOMPARE(shown(), QStringList({"", "1: x'/: Playlist"}));
    }

    void rowsMoveAndGo_withTheirSlots()
    {
        open(ab + " ];\r\n");
        pick(0);
        select("List2", 1);
        for (int i = 0; i < 3; i += 1)
            click(window, "Command3"); // at the top nothing more happens
        select("List2", 0);
        QTest::keyClick(list("List2"), Qt::Key_Down, Qt::AltModifier);
        click(window, "Command4");
        QCOMPARE(list("List2")->selectedItems().constFirst()->text(), "Álpha");
        select("List2", 4);
        QTest::keyClick(list("List2"), Qt::Key_Down, Qt::AltModifier);
        QTest::keyClick(list("List2"), Qt::Key_Up, Qt::AltModifier);
        select("List2", 0);
        QTest::keyClick(list("List2"), Qt::Key_Delete);
        for (const char *button : {"Command3", "Command4", "Command6"})
            click(window, button); // no row is selected
        QCOMPARE(shown().constFirst(), "beta|Álpha|alpine||a");
        boxesOf("Command1");
        pick(1);
        select("List2", 3);
        click(window, "Command3"); // past an empty slot
        click(window, "Command6"); // behind an empty slot
        QVERIFY(boxesOf("Command1", QMessageBox::Yes).constFirst().contains("not in the archive"));
        QCOMPARE(contents(path), "var playlist = [\r\n\"a\",\"3,2,5,4,#\",\r\n\"b\",\"2,,,#\",\r\n ];\r\n");
    }

    void aPlaylist_isSavedPickedChangedAndDeleted()
    {
        open(ab + " ];\r\n");
        QCOMPARE(boxesOf("Command1"), QStringList({"You must type a name for the playlist", "Warning!"}));
        click(window, "Command5");
        type("];");
        QVERIFY(boxesOf("Command1").constFirst().startsWith("A playlist cannot have this name"));
        QCOMPARE(contents(path), ab + " ];\r\n");
        type("new");
        boxesOf("Command1");
        QCOMPARE(shown().last(), "2: a b new: ");
        pick(2); // known, though added by this very Save
        add(0);
        boxesOf("Command1");
        boxesOf("Command1"); // nothing is shown any more: one more of that name
        QCOMPARE(contents(path), ab + "\"new\",\"4,#\",\r\n\"new\",\"4,#\",\r\n ];\r\n");
        QCOMPARE(boxesOf("Command8").constFirst(), "You must select a playlist");
        pick(2);
        QCOMPARE(boxesOf("Command8", QMessageBox::No).constFirst(), "Delete the playlist new?");
        QCOMPARE(shown().last(), "3: a b new: new");
        boxesOf("Command8", QMessageBox::Yes);
        QCOMPARE(contents(path), ab + " ];\r\n");
        QCOMPARE(shown(), QStringList({"", "2: a b: "}));
    }

    void moreSongsThanThereIsRoomFor_areRefused()
    {
        const QByteArray songs = QByteArray("5,").repeated(1000) + "#\",\r\n";
        open("var playlist = [\r\n\"a\",\"" + songs + "\"b\",\"1," + songs);
        pick(0);
        QVERIFY(boxesOf("Command2").constFirst().startsWith("The playlist is full"));
        {
            const BoxAnswers answers;
            pick(1);
        }
        QCOMPARE(shown(), QStringList({QString("alpine|").repeated(1000) + 'a', "2: a b: a"}));
    }

    void unreachableFile_isNotBegunAnew()
    {
        folder = std::make_unique<TestFolder>();
        QVERIFY(QDir().mkdir("spartiti") && QFile::link("playlist.js", path));
        const BoxAnswers answers({QMessageBox::Ok});
        form = std::make_unique<playlistfrm>();
        form->show();
        waitUntilActive(window);
        QVERIFY(answers.texts.value(0).startsWith("spartiti/playlist.js cannot be read"));
    }

    void whatGoesWrong_harmsNoPlaylist()
    {
        open(ab.chopped(5));
        type("x");
        QCOMPARE(boxesOf("Command1").constFirst(),
                 "Nothing was changed. spartiti/playlist.js is damaged at "
                 "playlist 2 and was not read. It is left as it is.");
        QCOMPARE(contents(path), ab.chopped(5));
        put(path, ab); // repaired by another program
        boxesOf("Command1");
        QCOMPARE(contents(path), ab + "\"x\",\"#\",\r\n ];\r\n");
        Module1.archiveRefusal = "The archive is damaged.";
        QVERIFY(boxesOf("Command1").constFirst().endsWith(Module1.archiveRefusal));
        Module1.archiveRefusal.clear();
        QVERIFY(QFile::remove(path)); // what was read last is written again
        pick(0);
        {
            const FullDisk full(0);
            QVERIFY(boxesOf("Command1").constFirst().startsWith("The playlist was not saved. The file is"));
        }
        QCOMPARE(shown().last(), "2: a b: a");
        boxesOf("Command1");
        QCOMPARE(contents(path), ab + "\"x\",\"#\",\r\n ];\r\n");
    }
};

WINDOW_TEST_MAIN(PlaylistWindowTest)
#include "playlist_window_test.moc"

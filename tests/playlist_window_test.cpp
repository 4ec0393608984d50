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

// The rows of List2, then the name of the playlist.
static QStringList edited()
{
    QStringList texts;
    for (int row = 0; row < list("List2")->count(); row += 1)
        texts += list("List2")->item(row)->text();
    return texts + QStringList(control<QLineEdit>(window, "Text1")->text());
}

// "count: the names that Combo1 offers: its text"
static QString stored()
{
    QStringList names;
    for (int row = 0; row < combo()->count(); row += 1)
        names += combo()->itemText(row);
    return control<QLabel>(window, "Label1")->text() + ": " + names.join(' ') + ": " + combo()->currentText();
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
private slots:
    void init()
    {
        QApplication::setDoubleClickInterval(10);
        folder = std::make_unique<TestFolder>();
        form = std::make_unique<playlistfrm>();
        putArchive({"beta|||0", "Álpha|||0", "beta|||0", "|||0", "alpine|||0"});
        QVERIFY(loadArchive().result.ok());
    }

    void cleanup()
    {
        form.reset();
        folder.reset();
    }

    void onlyAChoiceFromTheList_isAPick()
    {
        open(ab + "\"a\",\"3,2,#\",\r\n ];\r\n");
        QCOMPARE(stored(), "3: a b a: Playlist");
        combo()->lineEdit()->selectAll();
        QTest::keyClicks(combo()->lineEdit(), "a");
        QTest::keyClick(combo(), Qt::Key_Return);
        QCOMPARE(edited(), QStringList(""));
        QTest::keyClick(combo(), Qt::Key_Down);
        QTest::keyClick(combo()->view(), Qt::Key_Down);
        QTest::keyClick(combo()->view(), Qt::Key_Return);
        QCOMPARE(stored(), "3: a b a: b");
        QCOMPARE(edited(), QStringList({"Álpha", "", "", "alpine", "b"}));
        pick(0);
        QCOMPARE(edited(), QStringList({"beta", "Álpha", "a"})); // the last of that name
        click(window, "Command5");
        QCOMPARE(edited(), QStringList(""));
        pick(0);
        QCOMPARE(edited(), QStringList({"beta", "Álpha", "a"}));
    }

    void adding_takesTheRecordAsItNowStands()
    {
        form->show();
        waitUntilActive(window);
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
        QCOMPARE(edited(), QStringList({"beta _3", " _0", "Álpha _2", "Álpha _2", " _4", "x'/"}));
        Module1.recNumber[2] = "2";
        QCOMPARE(boxesOf("Command1"), QStringList({"Successfully saved", "Ok!"}));
        QCOMPARE(contents(path), "var playlist = [\r\n\"x'/\",\"3,,,,4,#\",\r\n ];\r\n");
        click(window, "Command7");
        QVERIFY(!windowNamed(window));
        form->show();
        QCOMPARE(stored(), "1: x'/: Playlist");
        QCOMPARE(edited(), QStringList(""));
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
        QCOMPARE(edited(), QStringList({"beta", "Álpha", "alpine", "", "a"}));
        boxesOf("Command1");
        pick(1);
        select("List2", 3);
        click(window, "Command3"); // past an empty slot
        click(window, "Command6"); // behind an empty slot
        boxesOf("Command1");
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
        QCOMPARE(stored(), "2: a b new: ");
        pick(2); // known, though added by this very Save
        add(0);
        boxesOf("Command1");
        boxesOf("Command1"); // nothing is shown any more: one more of that name
        QCOMPARE(contents(path), ab + "\"new\",\"4,#\",\r\n\"new\",\"4,#\",\r\n ];\r\n");
        QCOMPARE(boxesOf("Command8").constFirst(), "You must select a playlist");
        pick(2);
        QCOMPARE(boxesOf("Command8", QMessageBox::No).constFirst(), "Delete the playlist new?");
        QCOMPARE(stored(), "3: a b new: new");
        boxesOf("Command8", QMessageBox::Yes);
        QCOMPARE(contents(path), ab + " ];\r\n");
        QCOMPARE(stored() + edited().join('|'), "2: a b: ");
    }

    void moreSongsThanThereIsRoomFor_areRefused()
    {
        const QByteArray songs = QByteArray("5,").repeated(1000);
        open("var playlist = [\r\n\"a\",\"" + songs + "#\",\r\n\"b\",\"1," + songs + "#\",\r\n");
        pick(0);
        select("List1", 3);
        QVERIFY(boxesOf("Command2").constFirst().startsWith("The playlist is full"));
        const BoxAnswers answers;
        pick(1);
        QCOMPARE(answers.texts.size(), 1);
        QCOMPARE(stored() + edited().last(), "2: a b: aa");
        QCOMPARE(edited().size(), 1001);
    }

    void whatGoesWrong_harmsNoPlaylist()
    {
        open(ab.chopped(5));
        type("x");
        const QString refusal = "spartiti/playlist.js is damaged at playlist 2 and was not read. ";
        QVERIFY(boxesOf("Command1").constFirst().startsWith("Nothing was changed. " + refusal));
        QCOMPARE(contents(path), ab.chopped(5));
        put(path, ab); // repaired by another program
        boxesOf("Command1");
        QCOMPARE(contents(path), ab + "\"x\",\"#\",\r\n ];\r\n");
        QVERIFY(QFile::remove(path)); // what was read last is written again
        pick(0);
        {
            const FullDisk full(0);
            QVERIFY(boxesOf("Command1").constFirst().startsWith("The playlist was not saved. The file is"));
        }
        QCOMPARE(stored(), "2: a b: a");
        boxesOf("Command1");
        QCOMPARE(contents(path), ab + "\"x\",\"#\",\r\n ];\r\n");
    }

private:
    void open(const QByteArray &file)
    {
        put(path, file);
        const BoxAnswers answers;
        form->show();
        waitUntilActive(window);
    }

    std::unique_ptr<TestFolder> folder;
    std::unique_ptr<playlistfrm> form;
};

WINDOW_TEST_MAIN(PlaylistWindowTest)
#include "playlist_window_test.moc"

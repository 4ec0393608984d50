#include "archive/archive_file.h"
#include "controls/combo_box.h"
#include "playlists/playlistfrm.h"
#include "support/windows.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QWheelEvent>

#include <memory>

static const QString path = "spartiti/playlist.js";
static const QString window = "playlistfrm";

static QByteArray fileOf(const QByteArray &lines)
{
    return "var playlist = [\r\n" + lines + " ];\r\n";
}

static QListWidget *list(const QString &name)
{
    return control<QListWidget>(window, name);
}

static ComboBox *combo()
{
    return control<ComboBox>(window, "Combo1");
}

static QString name()
{
    return control<QLineEdit>(window, "Text1")->text();
}

static QStringList rows(const QString &name)
{
    QStringList texts;
    for (int row = 0; row < list(name)->count(); row += 1)
        texts += list(name)->item(row)->text();
    return texts;
}

static QStringList offered()
{
    QStringList texts;
    for (int row = 0; row < combo()->count(); row += 1)
        texts += combo()->itemText(row);
    return texts;
}

static QPoint rowOf(const QString &name, const QString &text)
{
    const QListWidgetItem *item = list(name)->findItems(text, Qt::MatchExactly).constFirst();
    list(name)->scrollToItem(item);
    return list(name)->visualItemRect(item).center();
}

static void select(const QString &name, const QString &text)
{
    QTest::mouseClick(list(name)->viewport(), Qt::LeftButton, {}, rowOf(name, text));
}

static void add(const QString &title)
{
    select("List1", title);
    click(window, "Command2");
}

static void type(const QString &text)
{
    control<QLineEdit>(window, "Text1")->selectAll();
    QTest::keyClicks(control(window, "Text1"), text);
}

static void clickOption(int row)
{
    QAbstractItemView *options = combo()->view();
    const QModelIndex index = options->model()->index(row, 0);
    options->scrollTo(index);
    QTest::mouseMove(options->viewport(), options->visualRect(index).center());
    QTest::mouseClick(options->viewport(), Qt::LeftButton, {}, options->visualRect(index).center());
}

static void pick(int row)
{
    QTest::mouseClick(combo(), Qt::LeftButton, {}, QPoint(combo()->width() - 8, 10));
    QTest::qWait(2 * QApplication::doubleClickInterval()); // until then a click on an option is none
    clickOption(row);
}

// Saves what is shown and gives the song list that the file then has for that name.
static QByteArray savedSongs(const QByteArray &name)
{
    const BoxAnswers answers;
    click(window, "Command1");
    waitUntilActive(window);
    const QByteArray file = contents(path);
    const auto start = file.lastIndexOf('"' + name + "\",\"") + name.size() + 4;
    return file.mid(start, file.indexOf('"', start) - start);
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

    void opening_showsTitlesAndPlaylists()
    {
        open(fileOf("\"b\",\"1,#\",\r\n\"a\",\"#\",\r\n"));
        QCOMPARE(rows("List1"), QStringList({"", "Álpha", "alpine", "beta", "beta"}));
        QCOMPARE(control<QLabel>(window, "Label1")->text(), "2");
        QCOMPARE(offered(), QStringList({"b", "a"}));
        QCOMPARE(combo()->currentText(), "Playlist");
        QCOMPARE(rows("List2") + QStringList(name()), QStringList(""));
        QVERIFY(list("List1")->sizeHintForRow(0) >= list("List1")->fontMetrics().height());
    }

    void aMissingFile_isBegun()
    {
        form->show();
        QCOMPARE(contents(path), fileOf({}));
        QCOMPARE(control<QLabel>(window, "Label1")->text(), "0");
        add("alpine");
        type("First");
        QCOMPARE(savedSongs("First"), "5,#");
        QCOMPARE(control<QLabel>(window, "Label1")->text(), "0");
    }

    void picking_showsTheLastOfAName()
    {
        open(fileOf("\"a\",\"1,#\",\r\n\"b\",\"2,,x,-1,8000,0,5,#\",\r\n\"a\",\"3,2,#\",\r\n"));
        pick(0);
        QCOMPARE(rows("List2"), QStringList({"beta", "Álpha"}));
        QCOMPARE(name(), "a");
        pick(1);
        QCOMPARE(rows("List2"), QStringList({"Álpha", "", "", "alpine"}));
        select("List2", "alpine");
        click(window, "Command3"); // one of the empty slots is moved, the other one passed by
        click(window, "Command6");
        select("List2", "Álpha");
        click(window, "Command6");
        add("alpine");
        QCOMPARE(rows("List2"), QStringList({"", "", "alpine _5"}));
        QCOMPARE(savedSongs("b"), ",,5,#");
        QVERIFY(contents(path).contains("\"a\",\"1,#\",\r\n"));
    }

    void onlyAChoiceFromTheList_isAPick()
    {
        open(fileOf("\"a\",\"1,#\",\r\n\"ab\",\"2,#\",\r\n"));
        QLineEdit *field = combo()->lineEdit();
        field->setFocus();
        field->selectAll();
        QTest::keyClicks(field, "a");
        QCOMPARE(combo()->currentText(), "a");
        QTest::keyClick(combo(), Qt::Key_Return);
        list("List1")->setFocus();
        QWheelEvent wheel({5, 5}, combo()->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, {}, {}, {}, false);
        QApplication::sendEvent(combo(), &wheel);
        QCOMPARE(combo()->currentText(), "a");
        QCOMPARE(name(), "");
        QCOMPARE(offered(), QStringList({"a", "ab"}));

        QTest::keyClick(combo(), Qt::Key_Down);
        QTest::keyClick(combo()->view(), Qt::Key_Down);
        QTest::keyClick(combo()->view(), Qt::Key_Return);
        const QString picked = name();
        QVERIFY(offered().contains(picked));
        QCOMPARE(rows("List2").size(), 1);
        type("changed");
        click(window, "Command5");
        pick(combo()->currentIndex());
        QCOMPARE(name(), picked);
        QCOMPARE(rows("List2").size(), 1);
    }

    void adding_takesTheRecordAsItNowStands()
    {
        open(fileOf({}));
        add("beta");
        click(window, "Command2");
        Module1.recTitle[5] = "renamed";
        add("alpine");
        Module1.recTitle[5] = "alpine";
        Module1.recNumber[5] = "";
        select("List1", "Álpha");
        QTest::mouseDClick(list("List1")->viewport(), Qt::LeftButton, {}, rowOf("List1", "Álpha"));
        QTest::keyClick(list("List1"), Qt::Key_Enter);
        add("alpine");
        QCOMPARE(rows("List2"),
                 QStringList({"beta _3", "beta _3", " _4", "Álpha _2", "Álpha _2", "alpine _5"}));
        type("x");
        QCOMPARE(savedSongs("x"), "3,3,4,2,2,,#");
        QTest::mouseClick(list("List1")->viewport(), Qt::LeftButton, {}, QPoint(5, 400)); // below all rows
        QTest::keyClick(list("List1"), Qt::Key_Return);
        QCOMPARE(rows("List2").size(), 6);
        Module1.recTitle[4] = "not empty";
        click(window, "Command2");
        QCOMPARE(rows("List2").last(), " _0");
        QCOMPARE(savedSongs("x"), "3,3,4,2,2,,,#");
    }

    void rowsMoveAndGo_withTheirSlots()
    {
        open(fileOf("\"m\",\"1,2,3,4,5,#\",\r\n"));
        pick(0);
        select("List2", "Álpha");
        for (int i = 0; i < 3; i += 1)
            click(window, "Command3"); // at the top nothing more happens
        QCOMPARE(savedSongs("m"), "2,1,3,4,5,#");
        QCOMPARE(list("List2")->selectedItems().constFirst()->text(), "Álpha");
        select("List2", "Álpha");
        QTest::keyClick(list("List2"), Qt::Key_Down, Qt::AltModifier);
        click(window, "Command4");
        QCOMPARE(rows("List2"), QStringList({"beta", "beta", "Álpha", "", "alpine"}));
        select("List2", "alpine");
        QTest::keyClick(list("List2"), Qt::Key_Down, Qt::AltModifier);
        QTest::keyClick(list("List2"), Qt::Key_Up, Qt::AltModifier);
        select("List2", "Álpha");
        QTest::keyClick(list("List2"), Qt::Key_Delete);
        QVERIFY(list("List2")->selectedItems().isEmpty());
        for (const char *button : {"Command3", "Command4", "Command6"})
            click(window, button); // no row is selected
        QCOMPARE(rows("List2"), QStringList({"beta", "beta", "alpine", ""}));
        QCOMPARE(savedSongs("m"), "1,3,5,4,#");
    }

    void saving_replacesOnlyWhatIsShown()
    {
        open(fileOf("\"a\",\"1,#\",\r\n\"b\",\"2,#\",\r\n"));
        BoxAnswers answers;
        click(window, "Command1");
        QCOMPARE(answers.texts.last() + '|' + answers.titles.last(),
                 "You must type a name for the playlist|Warning!");
        click(window, "Command5");
        type("];");
        click(window, "Command1");
        QVERIFY(answers.texts.last().startsWith("A playlist cannot have this name"));
        QCOMPARE(contents(path), fileOf("\"a\",\"1,#\",\r\n\"b\",\"2,#\",\r\n"));

        type("n\"w, \\");
        add("alpine");
        click(window, "Command1");
        QCOMPARE(answers.texts.last() + '|' + answers.titles.last(), "Successfully saved|Ok!");
        QCOMPARE(contents(path), fileOf("\"a\",\"1,#\",\r\n\"b\",\"2,#\",\r\n\"n'w, /\",\"5,#\",\r\n"));
        QCOMPARE(control<QLabel>(window, "Label1")->text(), "2");
        QCOMPARE(offered() + QStringList(combo()->currentText()), QStringList({"a", "b", "n'w, /", ""}));

        pick(2); // just saved, and known with its songs
        QCOMPARE(rows("List2"), QStringList("alpine"));
        add("Álpha");
        click(window, "Command1");
        QCOMPARE(contents(path), fileOf("\"a\",\"1,#\",\r\n\"b\",\"2,#\",\r\n\"n'w, /\",\"5,2,#\",\r\n"));
        click(window, "Command1"); // nothing is shown any more: one more of that name
        QVERIFY(contents(path).endsWith("\"n'w, /\",\"5,2,#\",\r\n\"n'w, /\",\"5,2,#\",\r\n ];\r\n"));
        QCOMPARE(offered().size(), 3);
    }

    void deleting_asksAndTakesEveryLineOfTheName()
    {
        const QByteArray file = fileOf("\"a\",\"1,#\",\r\n\"b\",\"2,#\",\r\n\"a\",\"3,#\",\r\n");
        open(file);
        BoxAnswers answers({QMessageBox::Ok, QMessageBox::No, QMessageBox::Yes});
        click(window, "Command8");
        pick(0);
        click(window, "Command8");
        QCOMPARE(answers.texts, QStringList({"You must select a playlist", "Delete the playlist a?"}));
        QCOMPARE(contents(path), file);
        click(window, "Command8");
        QCOMPARE(contents(path), fileOf("\"b\",\"2,#\",\r\n"));
        QCOMPARE(control<QLabel>(window, "Label1")->text(), "1");
        QCOMPARE(offered() + QStringList(name()), QStringList({"b", ""}));
        QCOMPARE(rows("List2"), QStringList());
        pick(0);
        type("not saved");
        click(window, "Command8");
        QCOMPARE(contents(path), fileOf({}));
        QCOMPARE(name(), "not saved");
        QCOMPARE(savedSongs("not saved"), "2,#");
    }

    void moreThanThereIsRoomFor_isRefused()
    {
        const QByteArray songs = QByteArray("5,").repeated(1000) + "#";
        open(fileOf("\"1000\",\"" + songs + "\",\r\n\"1001\",\"1," + songs + "\",\r\n"));
        pick(0);
        BoxAnswers answers;
        add("beta");
        pick(1);
        QCOMPARE(answers.texts.size(), 2);
        QCOMPARE(list("List2")->count(), 1000);
        QCOMPARE(name() + combo()->currentText(), "10001000");
        select("List2", "alpine");
        click(window, "Command6");
        click(window, "Command2");
        QCOMPARE(savedSongs("1000"), QByteArray("5,").repeated(999) + "3,#");
    }

    void aDamagedFile_isNeverWritten()
    {
        const QByteArray damaged = "var playlist = [\r\n\"a\",\"1,2";
        BoxAnswers answers;
        open(damaged);
        add("beta");
        type("x");
        click(window, "Command1");
        const QString told =
            "spartiti/playlist.js is damaged at playlist 1 and was not read. It is left as it is.";
        QCOMPARE(answers.texts, QStringList({told, "Nothing was changed. " + told}));
        QCOMPARE(contents(path), damaged);
        put(path, fileOf("\"a\",\"1,2,#\",\r\n")); // repaired
        QCOMPARE(savedSongs("x"), "3,#");
        QVERIFY(contents(path).contains("\"a\",\"1,2,#\",\r\n"));
    }

    void aFullDisk_leavesEverythingAsItWas()
    {
        const QByteArray file = fileOf("\"a\",\"1,#\",\r\n");
        open(file);
        pick(0);
        BoxAnswers answers({QMessageBox::Ok, QMessageBox::Yes, QMessageBox::Ok});
        {
            const FullDisk full(0);
            click(window, "Command1");
            click(window, "Command8");
        }
        QVERIFY(answers.texts[0].startsWith("The playlist was not saved. The file is as it was before."));
        QVERIFY(answers.texts[2].startsWith("The playlist was not deleted. The file is as it was before."));
        QCOMPARE(contents(path), file);
        QCOMPARE(name() + combo()->currentText(), "aa");
        QCOMPARE(savedSongs("a"), "1,#");
    }

    void aFileChangedMeanwhile_isWhatASaveRewrites()
    {
        open(fileOf("\"a\",\"1,#\",\r\n"));
        put(path, fileOf("\"z\",\"5,#\",\r\n"));
        pick(0);
        QCOMPARE(savedSongs("a"), "1,#");
        QCOMPARE(contents(path), fileOf("\"z\",\"5,#\",\r\n\"a\",\"1,#\",\r\n"));
        QCOMPARE(offered(), QStringList("z"));
        QVERIFY(QFile::remove(path)); // what was read is written again
        pick(0);
        QCOMPARE(savedSongs("z"), "5,#");
        QCOMPARE(contents(path), fileOf("\"z\",\"5,#\",\r\n\"a\",\"1,#\",\r\n"));
    }

    void esc_forgetsWhatWasNotSaved()
    {
        open(fileOf({}));
        add("beta");
        type("x");
        click(window, "Command7");
        QVERIFY(!windowNamed(window));
        form->show();
        QCOMPARE(rows("List2") + QStringList(name()), QStringList(""));
        QCOMPARE(contents(path), fileOf({}));
    }

private:
    void open(const QByteArray &file)
    {
        put(path, file);
        form->show();
        waitUntilActive(window);
    }

    std::unique_ptr<TestFolder> folder;
    std::unique_ptr<playlistfrm> form;
};

WINDOW_TEST_MAIN(PlaylistWindowTest)
#include "playlist_window_test.moc"

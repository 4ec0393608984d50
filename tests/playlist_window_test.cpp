#include "controls/combo_box.h"
#include "controls/row_list.h"
#include "support/windows.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>

static const QString path = "spartiti/playlist.js";
static const QString window = "Playlist Manager";
static const QString titles = "Titles of the archive";
static const QString songs = "Songs of the playlist";
static const QString name = "Playlist name";
static const QByteArray ab = "\"a\",\"1,2,3,4,5,#\",\r\n\"b\",\"2,,x,-1,8000,0,5,#\",\r\n";

// The playlist window on a file of these lines, or on none where they are null.
struct Playlisting : Program {
    explicit Playlisting(const QByteArray &lines)
        : Program(archiveOf({"beta|||0", "Álpha|||0", "beta|||0", "|||0", "alpine|||0"}))
    {
        if (!lines.isNull())
            put(path, fileOf("playlist", lines));
        chooseMenu("Playlist Manager");
        waitUntilActive(window);
    }

    // Clicks, and gives the texts of the boxes that came.
    QStringList boxesOf(const QString &button, const QList<Answer> &given = {Answer::Ok})
    {
        told.clear();
        answers = given;
        click(window, button);
        waitUntilActive(window);
        return told;
    }
};

static ComboBox *combo()
{
    return control<ComboBox>(window, "Stored playlists");
}

// The rows being edited and the name of the playlist.
static QString edited()
{
    return (shownRows(window, songs) + QStringList(textOf(window, name))).join('|');
}

// "count: names that the box offers: its text".
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
    waitUntilActive(window);
}

static void add(int title)
{
    clickRow(window, titles, title);
    click(window, "ADD");
}

// A key where the focus is.
static void key(Qt::Key pressed, Qt::KeyboardModifiers held = {})
{
    QTest::keyClick(QApplication::focusWidget(), pressed, held);
}

static void select(const QList<int> &rows)
{
    control<RowList>(window, songs)->setFocus();
    control<RowList>(window, songs)->selectRows(rows);
}

static QString selected(const QString &list)
{
    QStringList rows;
    for (const int row : control<RowList>(window, list)->selectedRows())
        rows += QString::number(row);
    return rows.join(' ');
}

// What the window system sends when the rows selected in a list are dropped over the songs, so many rows
// down from the top.
static void dragTo(const QString &from, double rowsDown)
{
    const auto *source = control<RowList>(window, from);
    const std::unique_ptr<QMimeData> rows(
        source->model()->mimeData(source->selectionModel()->selectedRows()));
    QWidget *over = control<RowList>(window, songs)->viewport();
    const int height = control<RowList>(window, songs)->sizeHintForRow(0);
    const QPoint at(20, static_cast<int>(rowsDown * height));
    const Qt::DropActions actions = Qt::CopyAction | Qt::MoveAction;
    QDragEnterEvent enter(at, actions, rows.get(), Qt::LeftButton, {});
    QDragMoveEvent move(at, actions, rows.get(), Qt::LeftButton, {});
    QDropEvent drop(at, actions, rows.get(), Qt::LeftButton, {});
    for (QDropEvent *event : {static_cast<QDropEvent *>(&enter), static_cast<QDropEvent *>(&move), &drop}) {
        QApplication::sendEvent(over, event);
        QVERIFY(event->isAccepted());
    }
    QCoreApplication::processEvents();
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

    void aPick_takesWhatIsOnTheDisk()
    {
        Playlisting playlisting(ab);
        put(path, fileOf("playlist", "\"a\",\"5,#\",\r\n"));
        pick(0);
        QCOMPARE(edited() + ' ' + stored(), "alpine|a 2: a b: a");
        playlisting.told.clear();
        pick(1);
        QTRY_COMPARE(playlisting.told.join(""),
                     "There is no playlist of this name any more. Perhaps another "
                     "program has deleted it.");
        QCOMPARE(edited() + ' ' + stored(), "alpine|a 2: a b: a");
        put(path, fileOf("playlist", ab).chopped(12));
        pick(0);
        QTRY_VERIFY(playlisting.told.last().startsWith("Nothing was changed. spartiti/playlist.js is"));
        QCOMPARE(edited() + ' ' + stored(), "alpine|a 2: a b: a");
    }

    void adding_takesTheRecordAsItNowStands()
    {
        Playlisting playlisting({});
        QCOMPARE(contents(path), fileOf("playlist", ""));
        add(3);
        Module1.recTitle[5] = "renamed";
        Module1.recTitle[4] = "not empty";
        add(2);
        Module1.recNumber[2] = "";
        clickRow(window, titles, 1);
        press(window, titles, Qt::Key_Enter);
        Module1.recTitle[4] = "";
        clickRow(window, titles, 0);
        press(window, titles, Qt::Key_Return);
        type(window, name, "x\"\\");
        QCOMPARE(edited(), "beta _3| _0|Álpha _2| _4|x'/");
        playlisting.boxesOf("Save", {Answer::Yes, Answer::Ok});
        QCOMPARE(playlisting.told.last(), "Successfully saved");
        QCOMPARE(contents(path), fileOf("playlist", "\"x'/\",\"3,,,4,#\",\r\n"));
        click(window, "Esc");
        chooseMenu("Playlist Manager");
        QCOMPARE(edited() + ' ' + stored(), " 1: x'/: Playlist");
    }

    void rowsMoveAndGo_withTheirSlots()
    {
        Playlisting playlisting(ab);
        pick(0);
        clickRow(window, songs, 1);
        click(window, "Move up");
        click(window, "Move up"); // at the top nothing more happens
        clickRow(window, songs, 0);
        press(window, songs, Qt::Key_Down, Qt::AltModifier);
        click(window, "Move down");
        clickRow(window, songs, 4);
        press(window, songs, Qt::Key_Down, Qt::AltModifier); // at the bottom neither
        press(window, songs, Qt::Key_Up, Qt::AltModifier);
        clickRow(window, songs, 0);
        press(window, songs, Qt::Key_Delete);
        click(window, "Remove"); // no row is selected
        QCOMPARE(edited(), "beta|Álpha|alpine||a");
        playlisting.boxesOf("Save");
        pick(1);
        clickRow(window, songs, 3);
        click(window, "Move up"); // past an empty slot
        click(window, "Remove"); // behind an empty slot
        playlisting.boxesOf("Save", {Answer::Yes, Answer::Ok});
        QCOMPARE(contents(path), fileOf("playlist", "\"a\",\"3,2,5,4,#\",\r\n\"b\",\"2,,,#\",\r\n"));
    }

    void severalRows_moveAndGoTogether()
    {
        const Playlisting playlisting("\"a\",\"1,2,3,4,5,#\",\r\n");
        pick(0);
        clickRow(window, songs, 1);
        const QRect third = control<RowList>(window, songs)
                                ->visualRect(control<RowList>(window, songs)->model()->index(3, 0));
        QTest::mouseClick(control<RowList>(window, songs)->viewport(), Qt::LeftButton, Qt::ControlModifier,
                          third.center());
        click(window, "Move up");
        QCOMPARE(edited(), "Álpha|beta||beta|alpine|a");
        QCOMPARE(selected(songs), "0 2");
        click(window, "Remove");
        QCOMPARE(edited(), "beta|beta|alpine|a");
        QCOMPARE(selected(songs), "");
    }

    void down_skipsNoRow()
    {
        const Playlisting playlisting("\"a\",\"1,2,3,4,5,#\",\r\n\"b\",\"2,#\",\r\n\"c\",\""
                                      + QByteArray("1,2,").repeated(400) + "#\",\r\n");
        auto *list = control<RowList>(window, songs);
        pick(1);
        list->setFocus(Qt::TabFocusReason);
        key(Qt::Key_Down);
        QCOMPARE(selected(songs), "0"); // a lone row
        pick(0);
        select({1});
        key(Qt::Key_Delete);
        key(Qt::Key_Down);
        QCOMPARE(selected(songs), "1");
        key(Qt::Key_Delete);
        key(Qt::Key_Up);
        QCOMPARE(selected(songs), "0");
        select({2});
        key(Qt::Key_Delete);
        key(Qt::Key_Down);
        QCOMPARE(selected(songs), "1"); // there is none below
        pick(2);
        list->setFocus(Qt::TabFocusReason);
        list->scrollToItem(list->item(300), QAbstractItemView::PositionAtTop);
        key(Qt::Key_Down);
        QCOMPARE(selected(songs), "300");
    }

    void aSave_asksBeforeItDestroys_data()
    {
        QTest::addColumn<QString>("begun"); // "picked", "new" after a pick, or "none"
        QTest::addColumn<QByteArray>("others"); // what another program then makes of the file; null: nothing
        QTest::addColumn<QString>("typed"); // the name; null: nothing
        QTest::addColumn<QList<Answer>>("answers");
        QTest::addColumn<QString>("question"); // what the first box asks
        QTest::addColumn<QByteArray>("after"); // the lines of the file
        const QByteArray a = "\"a\",\"1,#\",\r\n", b = "\"b\",\"2,#\",\r\n", p = "\"Playlist\",\"3,#\",\r\n";
        const QByteArray other = "\"a\",\"1,4,#\",\r\n", all = a + b + p;
        const QByteArray savedA = "\"a\",\"5,#\",\r\n", savedB = "\"b\",\"5,#\",\r\n",
                         savedP = "\"Playlist\",\"5,#\",\r\n";
        const QString there = "There is a playlist of this name already. Replace it?";
        const QString changed =
            "This playlist has been changed since it was picked, perhaps by another program. "
            "Saving replaces it. Do you want to save it all the same?";
        const QByteArray none;
        using Answers = QList<Answer>;
        const Answers yes{Answer::Yes, Answer::Ok}, no{Answer::No, Answer::Ok}, enter{enterKey, Answer::Ok};
        QTest::addRow("picked") << "picked" << none << QString() << Answers{Answer::Ok}
                                << "Successfully saved" << savedA + b + p;
        QTest::addRow("picked, others changed")
            << "picked" << b + a << QString() << Answers{Answer::Ok} << "Successfully saved" << b + savedA;
        QTest::addRow("picked, changed, yes")
            << "picked" << other + b << QString() << yes << changed << savedA + b;
        QTest::addRow("picked, changed, Enter")
            << "picked" << other + b << QString() << enter << changed << other + b;
        QTest::addRow("picked, deleted, yes")
            << "picked" << b << QString() << yes
            << "This playlist has been deleted since it was picked. Do you want to save it all the same?"
            << b + savedA;
        QTest::addRow("picked, deleted, Enter")
            << "picked" << b << QString() << enter
            << "This playlist has been deleted since it was picked. Do you want to save it all the same?"
            << b;
        QTest::addRow("picked, another name") << "picked" << none << "c" << Answers{Answer::Ok}
                                              << "Successfully saved" << all + "\"c\",\"5,#\",\r\n";
        QTest::addRow("picked, another's name, yes")
            << "picked" << none << "b" << yes << there << a + savedB + p;
        QTest::addRow("picked, another's name, no") << "picked" << none << "b" << no << there << all + savedB;
        QTest::addRow("picked, another's name, Enter")
            << "picked" << none << "b" << enter << there << all + savedB;
        QTest::addRow("new under the name picked before")
            << "new" << none << "a" << yes << there << savedA + b + p;
        QTest::addRow("the box's first text")
            << "none" << none << "Playlist" << enter << there << all + savedP;
        QTest::addRow("a name that came meanwhile")
            << "none" << all + "\"c\",\"4,#\",\r\n"
            << "c" << enter << there << all + "\"c\",\"4,#\",\r\n\"c\",\"5,#\",\r\n";
    }

    void aSave_asksBeforeItDestroys()
    {
        QFETCH(QString, begun);
        QFETCH(QByteArray, others);
        QFETCH(QString, typed);
        QFETCH(QList<Answer>, answers);
        Playlisting playlisting("\"a\",\"1,#\",\r\n\"b\",\"2,#\",\r\n\"Playlist\",\"3,#\",\r\n");
        if (begun != "none") {
            pick(0);
            clickRow(window, songs, 0);
            click(window, "Remove");
        }
        if (begun == "new")
            click(window, "New playlist");
        if (!others.isNull())
            put(path, fileOf("playlist", others));
        add(2);
        if (!typed.isNull())
            type(window, name, typed);
        playlisting.boxesOf("Save", answers);
        QTEST(playlisting.told.first(), "question");
        QTEST(contents(path).sliced(18).chopped(5), "after");
    }

    void whatAQuestionSpeaksOf_isLookedAtAgain()
    {
        Playlisting playlisting("\"a\",\"1,#\",\r\n");
        type(window, name, "a");
        playlisting.meanwhile = [] { put(path, fileOf("playlist", "\"a\",\"1,3,#\",\r\n")); };
        playlisting.boxesOf("Save", {Answer::Yes, Answer::No, Answer::Ok});
        QCOMPARE(playlisting.told.size(), 3);
        QCOMPARE(contents(path), fileOf("playlist", "\"a\",\"1,3,#\",\r\n\"a\",\"#\",\r\n"));
        pick(0);
        playlisting.boxesOf("Save", {enterKey});
        QCOMPARE(playlisting.told.last(),
                 "There are 2 different playlists of this name, and saving replaces all of them. Do "
                 "you want to save it all the same?");
        playlisting.meanwhile = [] { put(path, fileOf("playlist", "\"a\",\"4,#\",\r\n")); };
        playlisting.boxesOf("Delete playlist", {Answer::Yes, enterKey});
        QCOMPARE(playlisting.told.first(), "Delete the 2 playlists of the name a?");
        QVERIFY(playlisting.told.last().startsWith("This playlist has been changed since it was picked"));
        QCOMPARE(contents(path), fileOf("playlist", "\"a\",\"4,#\",\r\n"));
    }

    void songsWithoutANumber_areDroppedOnlyKnowingly()
    {
        Playlisting playlisting("\"a\",\"1,8000,0,#\",\r\n");
        pick(0);
        playlisting.boxesOf("Save", {enterKey});
        QCOMPARE(playlisting.told.join(""),
                 "Saving the playlist drops 2 songs not in the archive. Do you want to "
                 "save it all the same?");
        QCOMPARE(contents(path), fileOf("playlist", "\"a\",\"1,8000,0,#\",\r\n"));
        select({1, 2});
        click(window, "Remove");
        Module1.recNumber[2] = Module1.recNumber[5] = "";
        add(1);
        add(2);
        Module1.recNumber[5] = "5";
        playlisting.boxesOf("Save", {Answer::Yes, Answer::Ok});
        QCOMPARE(playlisting.told.first(),
                 "Saving the playlist drops 1 song added before the archive was saved. "
                 "Do you want to save it all the same?");
        QCOMPARE(contents(path), fileOf("playlist", "\"a\",\"1,,5,#\",\r\n"));
        pick(0); // the song that was dropped has gone, and no more is asked
        QCOMPARE(playlisting.boxesOf("Save"), QStringList("Successfully saved"));
        Module1.recNumber[2] = "";
        add(1);
        playlisting.boxesOf("Save", {Answer::Yes, Answer::Yes, Answer::Ok});
        Module1.recNumber[2] = "2"; // the archive was saved
        playlisting.boxesOf("Save", {Answer::Yes, Answer::Ok});
        QVERIFY(playlisting.told.first().startsWith("There is a playlist of this name"));
        QCOMPARE(contents(path), fileOf("playlist", "\"a\",\"1,5,2,#\",\r\n"));
    }

    void aPlaylist_isSavedPickedChangedAndDeleted()
    {
        Playlisting playlisting(ab);
        QCOMPARE(playlisting.boxesOf("Save"), QStringList("You must type a name for the playlist"));
        click(window, "New playlist");
        type(window, name, "];");
        QVERIFY(playlisting.boxesOf("Save").last().startsWith("A playlist cannot have this name"));
        type(window, name, "new");
        playlisting.boxesOf("Save");
        QCOMPARE(stored(), "2: a b new: ");
        pick(2); // known, though added by this very Save
        add(0);
        playlisting.boxesOf("Save");
        playlisting.boxesOf("Save",
                            {Answer::No, Answer::Ok}); // nothing is shown any more: one more of that name
        QCOMPARE(contents(path), fileOf("playlist", ab + "\"new\",\"4,#\",\r\n\"new\",\"4,#\",\r\n"));
        QCOMPARE(playlisting.boxesOf("Delete playlist"), QStringList("You must select a playlist"));
        pick(2);
        QCOMPARE(playlisting.boxesOf("Delete playlist", {enterKey}), QStringList("Delete the playlist new?"));
        QCOMPARE(stored(), "3: a b new: new");
        playlisting.boxesOf("Delete playlist", {Answer::Yes});
        QCOMPARE(contents(path), fileOf("playlist", ab));
        QCOMPARE(edited() + ' ' + stored(), " 2: a b: ");
        key(Qt::Key_Z, Qt::ControlModifier); // its songs can be had back, and saved
        QCOMPARE(edited(), "|new");
        QCOMPARE(playlisting.boxesOf("Save"), QStringList("Successfully saved"));
        QCOMPARE(contents(path), fileOf("playlist", ab + "\"new\",\"4,#\",\r\n"));
    }

    void undo_takesBackEachStep_alsoBehindASave()
    {
        Playlisting playlisting("\"a\",\"1,2,#\",\r\n");
        const QStringList states{" Playlist",      "beta _3| Playlist", "beta|Álpha|a a",
                                 "Álpha|beta|a a", "beta|a a",          " a",
                                 "alpine _5| a"};
        const auto state = [] { return edited() + ' ' + combo()->currentText(); };
        const std::function<void()> steps[] = {
            [] { add(3); },
            [] { pick(0); },
            [] {
                select({0});
                click(window, "Move down");
            },
            [] {
                select({0});
                key(Qt::Key_Delete);
            },
            [] { click(window, "New playlist"); },
            [] { add(2); },
        };
        for (int i = 0; i < 6; i += 1) {
            QCOMPARE(state(), states[i]);
            steps[i]();
        }
        for (int i = 6; i > 0; i -= 1) {
            QCOMPARE(state(), states[i]);
            key(Qt::Key_Z, Qt::ControlModifier);
        }
        key(Qt::Key_Z, Qt::ControlModifier);
        for (int i = 0; i < 4; i += 1) {
            QCOMPARE(state(), states[i]);
            i % 2 == 0 ? key(Qt::Key_Y, Qt::ControlModifier)
                       : key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        }
        QCOMPARE(playlisting.boxesOf("Save"), QStringList("Successfully saved")); // as picked
        key(Qt::Key_Z, Qt::ControlModifier);
        playlisting.boxesOf("Save", {Answer::Yes, Answer::Ok});
        QCOMPARE(contents(path), fileOf("playlist", "\"a\",\"2,1,#\",\r\n"));
        click(window, "Esc");
        chooseMenu("Playlist Manager");
        key(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(state(), " Playlist");
    }

    void undo_belongsToTheBoxThatIsTypedIn()
    {
        const Playlisting playlisting(ab);
        add(3);
        QTest::mouseClick(control(window, name), Qt::LeftButton);
        key(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(edited(), "beta _3|"); // nothing was typed
        QTest::keyClicks(QApplication::focusWidget(), "x");
        key(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(edited(), "beta _3|");
        key(Qt::Key_Y, Qt::ControlModifier);
        QCOMPARE(edited(), "beta _3|x");
        combo()->setFocus();
        QTest::keyClicks(QApplication::focusWidget(), "x");
        key(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(edited() + ' ' + combo()->currentText(), "beta _3|x Playlist");
        pick(0);
        combo()->setFocus();
        key(Qt::Key_Z, Qt::ControlModifier); // the pick
        QCOMPARE(edited() + ' ' + combo()->currentText(), "beta _3|x Playlist");
    }

    void songsAndTitles_areDragged()
    {
        const Playlisting playlisting("\"a\",\"1,2,3,4,5,#\",\r\n");
        pick(0);
        select({0, 2});
        dragTo(songs, 4.2); // above the middle of the fifth
        QCOMPARE(edited(), "Álpha||beta|beta|alpine|a");
        QCOMPARE(selected(songs), "2 3");
        dragTo(songs, 2.9);
        QCOMPARE(edited(), "Álpha||beta|beta|alpine|a"); // where they are
        clickRow(window, titles, 2);
        dragTo(titles, 0);
        QCOMPARE(edited(), "alpine _5|Álpha||beta|beta|alpine|a");
        QCOMPARE(selected(songs), "0");
        dragTo(songs, 8); // below the last
        QCOMPARE(edited(), "Álpha||beta|beta|alpine|alpine _5|a");
        control<RowList>(window, songs)->setFocus();
        for (int i = 0; i < 3; i += 1)
            key(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(edited(), "beta|Álpha|beta||alpine|a");
        QCOMPARE(selected(songs), "0 2");
    }

    void addSongs_takesNumbers()
    {
        Program program(archiveOf({"same|||0", "same|||0"}));
        program.rooms.playlistfrm_.addSongs({1, 2, 1});
        QCOMPARE(edited(), "same _1|same _2|same _1|");
        program.rooms.playlistfrm_.addSongs(QList<int>(998, 2));
        QTRY_COMPARE(program.told.join(""),
                     "The playlist has room for 997 songs more, and 998 were to be added. None was added.");
        QCOMPARE(edited(), "same _1|same _2|same _1|");
        waitUntilActive(window);
        control<RowList>(window, songs)->setFocus();
        key(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(edited(), "");
    }

    void moreSongsThanThereIsRoomFor_areRefused()
    {
        const QByteArray many = QByteArray("5,").repeated(1000) + "#\",\r\n";
        Playlisting playlisting("\"a\",\"" + many + "\"b\",\"1," + many);
        pick(0);
        QCOMPARE(playlisting.boxesOf("ADD"), QStringList("The playlist is full: it holds 1000 songs."));
        pick(1); // refused too
        QCOMPARE(edited() + ' ' + stored(), QString("alpine|").repeated(1000) + "a 2: a b: a");
    }

    void whatGoesWrong_harmsNoPlaylist()
    {
        Playlisting playlisting(ab);
        put(path, fileOf("playlist", ab).chopped(10));
        type(window, name, "x");
        QVERIFY(
            playlisting.boxesOf("Save").last().startsWith("Nothing was changed. spartiti/playlist.js is"));
        QCOMPARE(contents(path), fileOf("playlist", ab).chopped(10));
        QVERIFY(QFile::remove(path)); // what was read last is written again
        pick(0);
        Module1.archiveRefusal = "The archive is damaged.";
        QVERIFY(playlisting.boxesOf("Save").last().endsWith(Module1.archiveRefusal));
        Module1.archiveRefusal.clear();
        clickWithFullDisk(window, "Save");
        QVERIFY(playlisting.told.last().startsWith("The playlist was not saved. The file is"));
        QCOMPARE(stored(), "2: a b: a");
        playlisting.boxesOf("Save");
        QCOMPARE(contents(path),
                 fileOf("playlist", "\"a\",\"1,2,3,4,5,#\",\r\n" + ab.sliced(ab.indexOf("\"b\""))));
        click(window, "Esc");
        QVERIFY(QFile::remove(path) && QFile::link("playlist.js", path)); // there, but out of reach
        chooseMenu("Playlist Manager");
        QVERIFY(playlisting.told.last().startsWith("spartiti/playlist.js cannot be read"));
    }
};

QTEST_MAIN(PlaylistWindowTest)
#include "playlist_window_test.moc"

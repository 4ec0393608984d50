#include "controls/combo_box.h"
#include "controls/row_list.h"
#include "support/table.h"
#include "support/windows.h"

static const QString path = "spartiti/playlist.js";
static const QString window = "Playlist Manager";
static const QString titles = "Titles of the archive";
static const QString songs = "Songs of the playlist";
static const QString name = "Playlist name";
static const QByteArray ab = "\"a\",\"1,2,3,4,5,#\",\r\n\"b\",\"2,,x,-1,8000,0,5,#\",\r\n";
static const QByteArray a = "\"a\",\"1,#\",\r\n", b = "\"b\",\"2,#\",\r\n", c = "\"a\",\"1,4,#\",\r\n";

// The playlist window on a file of these lines, or on none where they are null.
struct Playlisting : Program {
    explicit Playlisting(const QByteArray &lines)
        : Program(archiveOf({"beta|||0", "Álpha|||0", "beta|||0", "|||0", "alpine|||0"}))
    {
        if (!lines.isNull())
            put(path, fileOf("playlist", lines));
        chooseMenu(window);
        waitUntilActive(window);
    }

    QString save(const QList<Answer> &given = {}) { return boxesOf(window, "Save", given); }
};

static ComboBox *combo()
{
    return control<ComboBox>(window, "Stored playlists");
}

// The rows being edited, the name of the playlist, and what the box shows.
static QString edited()
{
    return (shownRows(window, songs) + QStringList{textOf(window, name), combo()->currentText()}).join('|');
}

// "count: names that the box offers".
static QString stored()
{
    QStringList names;
    for (int row = 0; row < combo()->count(); row += 1)
        names += combo()->itemText(row);
    return textOf(window, "Label1") + ": " + names.join(' ');
}

static QByteArray lines()
{
    return contents(path).sliced(18).chopped(5);
}

static void pick(int row)
{
    QTest::keyClick(combo(), Qt::Key_Down); // opens the list
    const QList<Qt::Key> down(row, Qt::Key_Down);
    for (const Qt::Key key : QList{Qt::Key_Home} + down + QList{Qt::Key_Return})
        QTest::keyClick(combo()->view(), key);
    waitUntilActive(window);
}

// A step is "pick" with the row of a stored playlist, "title" with that of a title, "choose" with those of
// songs, "key" with a key where the focus is, or the caption of a button.
static void play(const QStringList &steps)
{
    for (const QString &step : steps) {
        QStringList rows = step.split(' ');
        const QString what = rows.takeFirst();
        if (what == "key")
            QTest::keySequence(QApplication::focusWidget(), QKeySequence(rows[0]));
        else if (what == "pick")
            pick(rows[0].toInt());
        else if (what != "title" && what != "choose")
            click(window, step);
        else
            for (const QString &row : rows)
                clickRow(window, what == "title" ? titles : songs, row.toInt(),
                         row == rows[0] ? Qt::NoModifier : Qt::ControlModifier);
    }
}

// Drops the rows selected in a list over the songs, so many rows down from the top.
static void dragTo(const QString &from, double rowsDown)
{
    auto *source = control<RowList>(window, from), *target = control<RowList>(window, songs);
    const std::unique_ptr<QMimeData> rows(
        source->model()->mimeData(source->selectionModel()->selectedRows()));
    drop(target->viewport(), *rows, {20, static_cast<int>(rowsDown * target->sizeHintForRow(0))});
    QCoreApplication::processEvents(); // they are taken a moment later
}

// What is done first; what another program then makes of the file; the name under which the list is saved
// with song 5; the answer; how the first box begins; the lines of the file.
using Saving = std::tuple<QStringList, QByteArray, QString, Answer, QString, QByteArray>;

class PlaylistWindowTest : public WindowTest
{
    Q_OBJECT
private slots:
    void onlyAChoiceFromTheList_isAPick()
    {
        const Playlisting playlisting(ab + "\"a\",\"3,2,#\",\r\n");
        QTest::keyClicks(combo()->lineEdit(), "a");
        QTest::keyClick(combo(), Qt::Key_Return);
        QCOMPARE(edited(), "|Playlista");
        pick(1);
        QCOMPARE(edited(), "Álpha|||alpine|b|b");
        pick(0);
        QCOMPARE(edited() + stored(), "beta|Álpha|a|a3: a b a"); // the last of that name
        put(path, fileOf("playlist", c));
        play({"pick 0", "pick 1"}); // what is on the disk
        put(path, fileOf("playlist", ab).chopped(12));
        pick(0);
        QCOMPARE(edited(), "beta||a|a");
        QVERIFY(playlisting.told.value(0).startsWith("There is no playlist of this name any more."));
        QVERIFY(playlisting.told.value(1).startsWith("Nothing was changed. spartiti/playlist.js is"));
    }

    void adding_takesTheRecordAsItNowStands()
    {
        Playlisting playlisting({});
        QCOMPARE(contents(path), fileOf("playlist", ""));
        Module1.recTitle[5] = "renamed";
        Module1.recTitle[4] = "not empty";
        Module1.recNumber[2] = "";
        play({"title 3", "ADD", "title 2", "ADD", "title 1", "key Enter"});
        Module1.recTitle[4] = "";
        play({"title 0", "key Return"});
        type(window, name, "x\"\\");
        QCOMPARE(edited(), "beta _3| _0|Álpha _2| _4|x'/|Playlist");
        QCOMPARE(
            playlisting.save({Answer::Yes}),
            "Saving the playlist drops 1 song not in the archive and 1 song added before the archive was "
            "saved. Do you want to save it all the same?\nSuccessfully saved");
        QCOMPARE(lines(), "\"x'/\",\"3,,,4,#\",\r\n");
        QVERIFY(playlisting.save({Answer::Yes}).startsWith("There is a playlist of"));
        click(window, "Esc");
        chooseMenu(window);
        play({"key Ctrl+Z"});
        QCOMPARE(edited() + stored(), "|Playlist1: x'/");
    }

    void rows_moveAreDraggedAndGo_withTheirSlots()
    {
        Playlisting playlisting(ab);
        play({"pick 0", "choose 1 3", "Move up"});
        QCOMPARE(control<RowList>(window, songs)->selectedRows(), QList<int>({0, 2}));
        play({"choose 4", "key Alt+Up", "choose 0", "Move down", "choose 1", "key Alt+Down"});
        play({"choose 0", "key Del"});
        QCOMPARE(edited(), "|Álpha|alpine|beta|a|a");
        QCOMPARE(playlisting.save(), "Successfully saved");
        play({"pick 1", "choose 3", "Move up", "Remove"}); // past an empty slot, and behind one
        QCOMPARE(
            playlisting.save({enterKey}),
            "Saving the playlist drops 2 songs not in the archive. Do you want to save it all the same?");
        playlisting.save({Answer::Yes});
        QCOMPARE(lines(), "\"a\",\"4,2,5,3,#\",\r\n\"b\",\"2,,,#\",\r\n");
        play({"pick 0", "choose 0 1"});
        dragTo(songs, 3.2); // above the middle of the fourth
        QCOMPARE(edited(), "alpine||Álpha|beta|a|a");
        clickRow(window, titles, 2);
        dragTo(titles, 0);
        dragTo(songs, 8); // below the last
        QCOMPARE(edited(), "alpine||Álpha|beta|alpine _5|a|a");
    }

    void aSave_asksBeforeItDestroys_data()
    {
        const QStringList first = {"pick 0", "choose 0", "Remove"},
                          anew = first + QStringList("New playlist");
        const QString done = "Successfully saved";
        const QString there = "There is a playlist of this name already. Replace it?";
        const QString changed = "This playlist has been changed since it was picked";
        const QString gone = "This playlist has been deleted since it was picked";
        const QByteArray as = "\"a\",\"5,#\",\r\n", bs = "\"b\",\"5,#\",\r\n";
        const QByteArray p = "\"Playlist\",\"3,#\",\r\n", ps = "\"Playlist\",\"5,#\",\r\n";
        tableOf<Saving>({{"picked", {first, b + a, "a", enterKey, done, b + as}},
                         {"changed, yes", {first, c + b, "a", Answer::Yes, changed, as + b}},
                         {"changed, Enter", {first, c + b, "a", enterKey, changed, c + b}},
                         {"deleted, yes", {first, b, "a", Answer::Yes, gone, b + as}},
                         {"deleted, Enter", {first, b, "a", enterKey, gone, b}},
                         {"another name", {first, a + b, "b", Answer::Yes, there, a + bs}},
                         {"new a", {anew, a + b, "a", Answer::Yes, there, as + b}},
                         {"the box's text", {{}, p, "Playlist", enterKey, there, p + ps}}});
    }
    void aSave_asksBeforeItDestroys()
    {
        const auto [begun, others, typed, answer, told, after] = tableRow<Saving>();
        Playlisting playlisting(a + b);
        play(begun);
        put(path, fileOf("playlist", others));
        play({"title 2", "ADD"});
        type(window, name, typed);
        QCOMPARE(playlisting.save({answer}).first(told.size()), told);
        QCOMPARE(lines(), after);
    }

    void whatAQuestionSpeaksOf_isLookedAtAgain()
    {
        Playlisting playlisting(a);
        type(window, name, "a");
        playlisting.meanwhile = [] { put(path, fileOf("playlist", c)); };
        playlisting.save({Answer::Yes, Answer::No});
        QCOMPARE(playlisting.told.size(), 3);
        QCOMPARE(lines(), c + "\"a\",\"#\",\r\n");
        pick(0);
        QVERIFY(playlisting.save({enterKey}).startsWith("There are 2 different playlists of this name"));
        playlisting.meanwhile = [] { put(path, fileOf("playlist", a)); };
        QVERIFY(playlisting.boxesOf(window, "Delete playlist", {Answer::Yes, enterKey})
                    .startsWith("Delete the 2 playlists of the name a?\nThis playlist has been changed"));
        QCOMPARE(lines(), a);
    }

    void aPlaylist_isSavedPickedChangedAndDeleted()
    {
        Playlisting playlisting(a);
        QCOMPARE(playlisting.save(), "You must type a name for the playlist");
        type(window, name, "];");
        QVERIFY(playlisting.save().startsWith("A playlist cannot have this name"));
        click(window, "New playlist");
        type(window, name, "new");
        playlisting.save();
        QCOMPARE(playlisting.boxesOf(window, "Delete playlist"), "You must select a playlist");
        QCOMPARE(stored(), "1: a new");
        play({"pick 1", "title 0", "ADD", "Save"}); // known, though added by this very Save
        QCOMPARE(lines(), a + "\"new\",\"4,#\",\r\n");
        pick(1);
        QCOMPARE(playlisting.boxesOf(window, "Delete playlist", {enterKey}), "Delete the playlist new?");
        playlisting.boxesOf(window, "Delete playlist", {Answer::Yes});
        QCOMPARE(lines(), a);
        QCOMPARE(edited() + stored(), "|1: a");
        play({"key Ctrl+Z", "Save"}); // its songs can be had back, and saved
        QCOMPARE(lines(), a + "\"new\",\"4,#\",\r\n");
    }

    void undo_takesBackEachStep_orWhatWasTypedInABox()
    {
        Playlisting playlisting("\"a\",\"1,2,#\",\r\n");
        play({"title 3", "ADD"});
        control(window, name)->setFocus();
        play({"key Ctrl+Z", "key x", "key Ctrl+Z"}); // nothing was typed; then an x
        combo()->setFocus();
        play({"key x", "key Ctrl+Z"});
        QCOMPARE(edited(), "beta _3||Playlist");
        control(window, name)->setFocus();
        play({"key Ctrl+Y"});
        QCOMPARE(edited(), "beta _3|x|Playlist");
        play({"pick 0", "choose 0", "Move down", "New playlist", "title 2", "ADD"});
        for (const char *shown : {"|a", "Álpha|beta|a|a", "beta|Álpha|a|a", "beta _3|x|Playlist"}) {
            play({"key Ctrl+Z"});
            QCOMPARE(edited(), shown);
        }
        play({"key Ctrl+Y", "key Ctrl+Shift+Z"});
        QCOMPARE(playlisting.save(), "Successfully saved"); // it is the one picked
        play({"key Ctrl+Z"});
        playlisting.save({Answer::Yes});
        QCOMPARE(lines(), "\"a\",\"1,2,#\",\r\n");
    }

    void moreSongsThanThereIsRoomFor_areRefused()
    {
        const QByteArray many = QByteArray("5,").repeated(1000) + "#\",\r\n";
        Playlisting playlisting("\"a\",\"" + many + "\"b\",\"1," + many);
        for (const QList<int> &numbers : {QList{1, 2, 1}, QList<int>(998, 2)})
            playlisting.rooms.playlistfrm_.addSongs(numbers);
        QCOMPARE(edited(), "beta _1|Álpha _2|beta _1||Playlist");
        play({"pick 0", "title 0", "ADD", "pick 1"});
        QCOMPARE(edited(), QString("alpine|").repeated(1000) + "a|a");
        QCOMPARE(playlisting.told.join('|').section("1001", 0, 0),
                 "The playlist has room for 997 songs more, and 998 were to be added. None was added.|"
                 "The playlist is full: it holds 1000 songs.|This playlist holds ");
    }

    void whatGoesWrong_harmsNoPlaylist()
    {
        Playlisting playlisting(a);
        const QByteArray cut = fileOf("playlist", a).chopped(10);
        type(window, name, "x");
        put(path, cut);
        QVERIFY(playlisting.save().startsWith("Nothing was changed. spartiti/playlist.js is"));
        QCOMPARE(contents(path), cut);
        QVERIFY(QFile::remove(path)); // what was read last is written again
        pick(0);
        Module1.archiveRefusal = "The archive is damaged.";
        QVERIFY(playlisting.save().endsWith(std::exchange(Module1.archiveRefusal, {})));
        clickWithFullDisk(window, "Save");
        QVERIFY(playlisting.told.last().startsWith("The playlist was not saved. The file is"));
        playlisting.save();
        QCOMPARE(lines(), a);
        click(window, "Esc");
        QVERIFY(QFile::remove(path) && putLink("playlist.js", path)); // there, but out of reach
        chooseMenu(window);
        QVERIFY(playlisting.told.last().startsWith("spartiti/playlist.js cannot be read"));
    }
};

QTEST_MAIN(PlaylistWindowTest)
#include "playlist_window_test.moc"

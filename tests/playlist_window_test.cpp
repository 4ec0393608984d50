#include "controls/combo_box.h"
#include "controls/row_list.h"
#include "support/windows.h"

static const QString path = "spartiti/playlist.js";
static const QString window = "Playlist Manager";
static const QString titles = "Titles of the archive", songs = "Songs of the playlist";
static const QString name = "Playlist name";
static const QByteArray a = "\"a\",\"1,#\",\r\n", b = "\"b\",\"2,#\",\r\n", c = "\"a\",\"1,4,#\",\r\n";

// The playlist window on a file of these lines, or on none where they are null.
struct Playlisting : Program {
    explicit Playlisting(const QByteArray &lines,
                         const QStringList &records = {"beta|||0", "Álpha|||0", "beta|||0", "|||0",
                                                       "alpine|||0"})
        : Program(archiveOf(records))
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

// Drops the rows selected in a list over the songs, so many rows down from the top.
static void dragTo(const QString &from, double rowsDown)
{
    auto *source = control<RowList>(window, from), *target = control<RowList>(window, songs);
    const std::unique_ptr<QMimeData> rows(
        source->model()->mimeData(source->selectionModel()->selectedRows()));
    drop(target->viewport(), *rows, {20, static_cast<int>(rowsDown * target->sizeHintForRow(0))});
    QCoreApplication::processEvents(); // they are taken a moment later
}

// A step is "pick" with the row of a stored playlist, "title" with that of a title, "choose" with those of
// songs, "drag" and "insert" with the place to which songs or titles go, "key" with a key where the focus is,
// or the caption of a button.
static void play(const QStringList &steps)
{
    for (const QString &step : steps) {
        QStringList rows = step.split(' ');
        const QString what = rows.takeFirst();
        if (what == "key")
            QTest::keySequence(QApplication::focusWidget(), QKeySequence(rows[0]));
        else if (what == "pick")
            pick(rows[0].toInt());
        else if (what == "drag" || what == "insert")
            dragTo(what == "drag" ? songs : titles, rows[0].toDouble());
        else if (what != "title" && what != "choose")
            click(window, step);
        else
            for (const QString &row : rows)
                clickRow(window, what == "title" ? titles : songs, row.toInt(),
                         row == rows[0] ? Qt::NoModifier : Qt::ControlModifier);
    }
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
        const Playlisting playlisting(a + b + "\"a\",\"3,2,#\",\r\n");
        QTest::keyClicks(combo()->lineEdit(), "a");
        QTest::keyClick(combo(), Qt::Key_Return);
        QCOMPARE(edited(), "|Playlista");
        pick(0);
        QCOMPARE(edited() + stored(), "beta|Álpha|a|a3: a b a"); // the last of that name
        put(path, fileOf("playlist", c));
        play({"pick 0", "pick 1"}); // what is on the disk
        put(path, fileOf("playlist", a).chopped(12));
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
        play(
            {"title 3", "ADD", "title 1", "ADD", "title 2", "key Enter", "key Enter", "choose 3", "key Del"});
        Module1.recTitle[4] = "";
        playlisting.rooms.playlistfrm_.addSongs({8000});
        play({"title 0", "key Return"});
        type(window, name, "x\"\\");
        QCOMPARE(edited(), "beta _3|Álpha _2| _0| _8000| _4|x'/|Playlist");
        QVERIFY(
            playlisting.save({enterKey})
                .startsWith("Saving the playlist drops 2 songs not in the archive and 1 song added before"));
        playlisting.save({Answer::Yes});
        QCOMPARE(lines(), "\"x'/\",\"3,,,,4,#\",\r\n");
        QVERIFY(playlisting.save({Answer::Yes}).startsWith("There is a playlist of"));
        click(window, "Esc");
        chooseMenu(window);
        press(window, titles, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(edited() + stored(), "|Playlist1: x'/");
    }

    void rows_moveAreDraggedAndGo_andEachStepIsTakenBack()
    {
        Playlisting playlisting("\"a\",\"1,2,3,4,5,6,#\",\r\n",
                                {"1|||0", "2|||0", "3|||0", "4|||0", "5|||0", "6|||0"});
        QStringList all;
        for (const auto &[steps, after] : std::initializer_list<std::pair<QStringList, QString>>{
                 {{"pick 0"}, "1 2 3 4 5 6"},
                 {{"choose 1 2 5", "Move up"}, "2 3 1 4 6 5"},
                 {{"Move up"}, "2 3 1 4 6 5"}, // one of them is at the top
                 {{"choose 1 3 4", "Move down"}, "2 1 3 5 4 6"},
                 {{"Move down"}, "2 1 3 5 4 6"}, // at the bottom
                 {{"choose 1 4", "drag 3.2"}, "2 3 1 4 5 6"}, // above the middle of the fourth
                 {{"choose 2 4", "drag 0"}, "1 5 2 3 4 6"},
                 {{"choose 0 2", "drag 8"}, "5 3 4 6 1 2"}, // below the last
                 {{"choose 0 2 3", "Remove", "Remove"}, "3 1 2"},
                 {{"title 4", "insert 1"}, "3 5 _5 1 2"},
                 {{"choose 2", "key Alt+Down"}, "3 5 _5 2 1"},
                 {{"choose 3", "key Alt+Up"}, "3 5 _5 1 2"},
                 {{"key Del"}, "3 5 _5 2"}}) {
            play(steps);
            QCOMPARE(shownRows(window, songs).join(' '), after);
            if (all.isEmpty() || after != all.last())
                all += after;
        }
        for (auto before = all.rbegin() + 1; before != all.rend(); ++before) {
            play({"key Ctrl+Z"});
            QCOMPARE(shownRows(window, songs).join(' '), *before);
        }
        play(QStringList(all.size() - 1, "key Ctrl+Y"));
        QCOMPARE(playlisting.save(), "Successfully saved");
        QCOMPARE(lines(), "\"a\",\"3,5,2,#\",\r\n");
    }

    void aSave_asksBeforeItDestroys_data()
    {
        const QStringList first = {"pick 0", "choose 0", "Remove"};
        const QString there = "There is a playlist of this name already. Replace it?";
        const QString changed = "This playlist has been changed since it was picked";
        const QString gone = "This playlist has been deleted since it was picked";
        const QByteArray as = "\"a\",\"5,#\",\r\n", bs = "\"b\",\"5,#\",\r\n";
        const QByteArray p = "\"Playlist\",\"3,#\",\r\n", ps = "\"Playlist\",\"5,#\",\r\n";
        tableOf<Saving>({{"changed, yes", {first, c + b, "a", Answer::Yes, changed, as + b}},
                         {"changed, Enter", {first, c + b, "a", enterKey, changed, c + b}},
                         {"deleted", {first, b, "a", enterKey, gone, b}},
                         {"another name", {first, a + b, "b", Answer::Yes, there, a + bs}},
                         {"new a", {{"pick 0", "New playlist"}, a + b, "a", Answer::Yes, there, as + b}},
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
        play({"pick 0", "New playlist"});
        for (const char *shown : {"beta|Álpha|a|a", "beta _3|x|Playlist"}) {
            play({"key Ctrl+Z"});
            QCOMPARE(edited(), shown);
        }
        play({"key Ctrl+Shift+Z"});
        QCOMPARE(playlisting.save(), "Successfully saved"); // it is the one picked
    }

    void moreSongsThanThereIsRoomFor_areRefused()
    {
        const QByteArray many = QByteArray("5,").repeated(1000) + "#\",\r\n";
        Playlisting playlisting("\"a\",\"" + many + "\"b\",\"1," + many);
        for (const QList<int> &numbers : {QList{1, 2, 1}, QList<int>(998, 2)})
            playlisting.rooms.playlistfrm_.addSongs(numbers);
        QCOMPARE(edited(), "beta _1|Álpha _2|beta _1||Playlist");
        play({"pick 0", "title 0", "ADD", "insert 0", "pick 1"});
        QCOMPARE(edited(), QString("alpine|").repeated(1000) + "a|a");
        QCOMPARE(playlisting.told.join('|').section("1001", 0, 0),
                 "The playlist has room for 997 songs more, and 998 were to be added. None was added.|"
                 "The playlist is full: it holds 1000 songs.|The playlist is full: it holds 1000 songs.|"
                 "This playlist holds ");
    }

    void whatGoesWrong_harmsNoPlaylist()
    {
        Playlisting playlisting(a);
        pick(0);
        Module1.archiveRefusal = "The archive is damaged.";
        QVERIFY(playlisting.save().endsWith(std::exchange(Module1.archiveRefusal, {})));
        clickWithFullDisk(window, "Save");
        QVERIFY(playlisting.told.last().startsWith("The playlist was not saved. The file is"));
        playlisting.answers = {Answer::Yes};
        clickWithFullDisk(window, "Delete playlist");
        QVERIFY(playlisting.told.last().startsWith("The playlist was not deleted. The file is"));
        QCOMPARE(lines(), a);
        put(path, fileOf("playlist", a).chopped(10));
        QVERIFY(playlisting.save().startsWith("Nothing was changed. spartiti/playlist.js is"));
        click(window, "Esc");
        chooseMenu(window);
        QVERIFY(playlisting.told.last().startsWith("spartiti/playlist.js is damaged"));
    }
};

QTEST_MAIN(PlaylistWindowTest)
#include "playlist_window_test.moc"

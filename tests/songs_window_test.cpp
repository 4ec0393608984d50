#include "files/data_folder.h"
#include "songs/set_list.h"
#include "support/windows.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QProcess>
#include <QStandardPaths>
#include <QTableView>

static const QString window = "Songs";
static const QString path = "spartiti/archivio.js";

static QTableView *table()
{
    return control<QTableView>(window, "Songs");
}

// What has the focus; just after a box has closed nothing may, for a moment.
static QWidget *focused()
{
    if (!QTest::qWaitFor([] { return QApplication::focusWidget() != nullptr; }))
        failTest("nothing has the focus");
    return QApplication::focusWidget();
}

static void key(Qt::Key key, Qt::KeyboardModifiers held = {})
{
    QTest::keyClick(focused(), key, held);
}

static void keys(const QString &text)
{
    QTest::keyClicks(focused(), text);
}

static void openSongs()
{
    press("Form1", "Text2", Qt::Key_F, Qt::ControlModifier);
    waitUntilActive(window);
}

// The titles of all rows.
static QString titles()
{
    QStringList all;
    for (int row = 0; row < table()->model()->rowCount(); row += 1)
        all += table()->model()->index(row, 1).data().toString();
    return all.join(' ');
}

static QString currentTitle()
{
    return table()->currentIndex().siblingAtColumn(1).data().toString();
}

static void show(const QString &choice)
{
    auto *box = control<QComboBox>(window, "Show");
    box->setFocus();
    box->showPopup();
    QListView *list = box->findChild<QListView *>();
    const QModelIndex row = box->model()->index(box->findText(choice), 0);
    list->scrollTo(row);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualRect(row).center());
}

// The entry of that text in the menu that is open; null if there is none.
static QAction *openEntry(const QString &text)
{
    const auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    for (QAction *entry : menu ? menu->actions() : QList<QAction *>()) {
        if (entry->text() == text)
            return entry;
    }
    return nullptr;
}

// Chooses in the open menu, or in a menu of that, by real clicks.
static void choose(const QStringList &entries)
{
    for (const QString &text : entries) {
        QTRY_VERIFY(openEntry(text));
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(openEntry(text)).center());
    }
}

// With all rows chosen, by keys.
static void chooseForAll(const QStringList &entries)
{
    table()->setFocus();
    key(Qt::Key_A, Qt::ControlModifier);
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
    QApplication::sendEvent(table()->viewport(), &event);
    choose(entries);
    waitUntilActive(window); // a dialog may have been in front
    table()->setFocus();
}

// What is done in the dialog that opens next, before Enter closes it.
static void inDialog(const std::function<void()> &steps)
{
    auto *timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, timer, [=] {
        QWidget *dialog = QApplication::activeModalWidget();
        if (!dialog || !dialog->isAncestorOf(QApplication::focusWidget()))
            return;
        timer->deleteLater();
        timer->stop();
        steps();
        QTest::keyClick(dialog, Qt::Key_Return);
    });
    timer->start(5);
}

static QStringList pdfLines(const QString &file)
{
    QProcess reader;
    reader.start("pdftotext", {"-layout", file, "-"});
    reader.waitForFinished();
    QStringList lines = QString::fromUtf8(reader.readAllStandardOutput()).split('\n');
    for (QString &line : lines)
        line = (line.startsWith('\f') ? "\f" : "") + line.simplified();
    return lines;
}

class SongsWindowTest : public WindowTest
{
    Q_OBJECT
private slots:
    void aSong_isShownByAFewKeys()
    {
        const Program program(archiveOf({"La mer|Debussy||1", "Röyksopp|||1", "Mer la|||1"}));
        openSongs();
        QVERIFY(control<QLineEdit>(window, "Find")->hasFocus());
        QCOMPARE(textOf(window, "count"), "3 of 3 songs");
        keys("royks");
        QCOMPARE(titles(), "Röyksopp");
        key(Qt::Key_Down);
        QVERIFY(table()->hasFocus());
        key(Qt::Key_Return);
        QCOMPARE(textOf("Form1", "Text2"), "Röyksopp");
        waitUntilActive("Form1");
        press("Form1", "Text2", Qt::Key_F, Qt::ControlModifier); // the same list comes forward
        waitUntilActive(window);
        keys("\"la mer\""); // in place of what was selected
        QCOMPARE(titles(), "La mer");
        key(Qt::Key_Down);
        keys("x"); // typed in the table, it is for the box
        QCOMPARE(textOf(window, "Find"), "\"la mer\"x");
        QCOMPARE(textOf(window, "count"), "0 of 3 songs");
        QCOMPARE(textOf(window, "nothing"), "Nothing found.");
        QVERIFY(control(window, "nothing")->isVisible());
        key(Qt::Key_Escape);
        QVERIFY(!windowNamed(window));
    }

    void theList_keepsPlaceSortAndSearch()
    {
        Program program(archiveOf({"ab|||1", "ac|||1", "b|||1", "ad|||1"}));
        openSongs();
        keys("a");
        QTest::mouseClick(table()->horizontalHeader()->viewport(), Qt::LeftButton, {},
                          {table()->columnViewportPosition(1) + 20, 8});
        QTest::mouseClick(table()->horizontalHeader()->viewport(), Qt::LeftButton, {},
                          {table()->columnViewportPosition(1) + 20, 8});
        clickRow(window, "Songs", 1, 100);
        QCOMPARE(titles() + '/' + currentTitle(), "ad ac ab/ac");
        program.rooms.form1.showSong(1);
        type("Form1", "Text2", "az");
        QCOMPARE(titles() + '/' + currentTitle(), "az ad ac/ac");
        click("Form1", "Add");
        type("Form1", "Text2", "aa");
        QCOMPARE(titles() + '/' + currentTitle(), "az ad ac aa/ac");
        click("Form1", "Save");
        QCOMPARE(titles() + '/' + currentTitle(), "az ad ac aa/ac");
        putArchive({"ab|||1", "ac|||1", "ae|||1"});
        program.rooms.form1.reload();
        QCOMPARE(titles() + '/' + currentTitle(), "ae ac ab/ac");
    }

    void show_choosesByWhatIsLacking()
    {
        const Program program(archiveOf({"A|||0", "B|||1", "C|||1"}));
        put("spartiti/playlist.js", fileOf("playlist", "\"Evening\",\"3,1,3,#\",\r\n"));
        openSongs();
        show("Without category");
        QCOMPARE(titles(), "A");
        show("Evening");
        QCOMPARE(titles(), "C A C");
        show("All");
        QCOMPARE(titles(), "A B C");
        put("spartiti/audio/2.mp3", {}); // seen when the window is the active one again
        waitUntilActive("Form1");
        waitUntilActive(window);
        show("Without recording");
        QCOMPARE(titles(), "A C");
    }

    void aCell_isEditedAndUndone()
    {
        const Program program(archiveOf({"A|||1", "B|||1"}));
        openSongs();
        clickRow(window, "Songs", 1, 100);
        key(Qt::Key_F2);
        keys("Be\"");
        key(Qt::Key_Z, Qt::ControlModifier); // the box's own
        QVERIFY(Module1.recTitle[2] == "B" && qobject_cast<QLineEdit *>(QApplication::focusWidget()));
        key(Qt::Key_A, Qt::ControlModifier);
        keys("Be\"");
        key(Qt::Key_Return);
        QTRY_COMPARE(Module1.recTitle[2], "Be'");
        QCOMPARE(textOf("Form1", "Text2"), "Be'"); // the last song, which the main window shows
        QCOMPARE(textOf(window, "unsaved"), "1 change not saved");
        QCOMPARE(contents(path), archiveOf({"A|||1", "B|||1"}));
        click(window, "Save");
        QCOMPARE(contents(path), archiveOf({"A|||1", "Be'|||1"}));
        QCOMPARE(textOf(window, "unsaved"), "");
        waitUntilActive(window);
        table()->setFocus();
        key(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(titles(), "A B");
        key(Qt::Key_Y, Qt::ControlModifier);
        QCOMPARE(titles(), "A Be'");
        key(Qt::Key_F, Qt::ControlModifier);
        keys("b");
        key(Qt::Key_Z, Qt::ControlModifier); // takes the letter back, not the edit
        QCOMPARE(textOf(window, "Find") + titles(), "A Be'");
    }

    void manySongs_areChangedAsOneStep()
    {
        const Program program(archiveOf({"A||x y|1", "B||Y|2", "C|||3"}));
        put("spartiti/generi.js", fileOf("generi", linesOf("Jazz" + QString("|x").repeated(32))));
        openSongs();
        chooseForAll({"Set the category", "Jazz"});
        QCOMPARE(Module1.recCategory[2] + Module1.recCategory[3], "11");
        inDialog([] { keys("loud y"); });
        chooseForAll({"Add a tag…"});
        QCOMPARE(Module1.recTags[1] + '|' + Module1.recTags[2] + '|' + Module1.recTags[3],
                 "x y loud|Y loud|loud y");
        key(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(Module1.recTags[1] + '|' + Module1.recTags[2] + '|' + Module1.recTags[3], "x y|Y|");
        inDialog([] { key(Qt::Key_Down); }); // from x to y
        chooseForAll({"Remove a tag…"});
        QCOMPARE(Module1.recTags[1] + '|' + Module1.recTags[2] + '|' + Module1.recTags[3], "x||");
        QCOMPARE(contents(path), archiveOf({"A||x y|1", "B||Y|2", "C|||3"}));
        key(Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QGuiApplication::clipboard()->text().section('\n', 0, 1),
                 "No.\tTitle\tAuthor\tTags\tCategory\tLeft\tRight\tRecording\tMIDI\tPlaylists\n"
                 "1\tA\t\tx\tJazz\t\t\t\t\t");
    }

    void midiSettings_areCopiedInOneWriting()
    {
        const auto block = [](int n, const char *row) {
            return linesOf(QString::number(n) + QString('|' + QString(row)).repeated(16));
        };
        Program program(archiveOf({"A|||1", "B|||1", "C|||1"}), {Answer::No, Answer::Yes});
        const QByteArray before = fileOf("midi", block(7, "é,,9") + block(1, "1,2,3") + block(3, "4,5,6"));
        put(midiPath(), before);
        openSongs();
        chooseForAll({"Copy the MIDI settings of the first"});
        QVERIFY(program.told.value(0).startsWith("Give 2 songs the MIDI settings of song 1, A?"));
        QCOMPARE(contents(midiPath()), before);
        chooseForAll({"Copy the MIDI settings of the first"});
        QCOMPARE(
            contents(midiPath()),
            fileOf("midi", block(7, "é,,9") + block(1, "1,2,3") + block(3, "1,2,3") + block(2, "1,2,3")));
        QCOMPARE(table()->model()->index(1, 8).data().toString(), QString(QChar(0x2713)));
    }

    void theSetList_isOfTwoPagesAndReadable()
    {
        if (QStandardPaths::findExecutable("pdftotext").isEmpty())
            QSKIP("there is no pdftotext");
        const TestFolder folder;
        Module1.recCount = 40;
        SongsOnDisk::Playlist playlist{"Summer", {}};
        for (int n = 40; n >= 1; n -= 1) {
            Module1.recTitle[static_cast<size_t>(n)] = QStringLiteral("Song %1 é").arg(n);
            Module1.recAuthor[static_cast<size_t>(n)] = "An author";
            playlist.songs += n;
        }
        put("list.pdf", setListPdf(playlist));
        QStringList lines = pdfLines("list.pdf");
        QCOMPARE(lines.value(0), "Summer");
        QVERIFY(lines.contains("1 Song 40 é 40") && lines.contains("40 Song 1 é 1"));
        QCOMPARE(lines.filter("\f").size(), 2); // the ends of two pages
        Module1.recTitle[40] = QString("long ").repeated(40);
        Module1.recTitle[39].clear();
        playlist.songs = {40, 39, 41};
        put("list.pdf", setListPdf(playlist));
        lines = pdfLines("list.pdf");
        QCOMPARE(lines.join(' ').count("long"), 40);
        QVERIFY(lines.contains("2 (without title) 39") && lines.contains("3 (not in the archive) 41"));
    }
};

QTEST_MAIN(SongsWindowTest)
#include "songs_window_test.moc"

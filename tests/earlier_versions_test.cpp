// The window "Earlier versions", and numbers that are emptied into them.
#include "files/safe_write.h"
#include "support/keeping.h"
#include "support/songs_window.h"

static const QString window = "Earlier versions";
static const QString mainWindow = "Tessaline 5.0";
static const QString path = "spartiti/archivio.js";

static QString textsOf(const QString &table)
{
    const auto *view = control<QTableView>(window, table);
    QStringList texts;
    for (int row = 0; row < view->model()->rowCount(); row += 1) {
        for (int column = 1; column < view->model()->columnCount(); column += 1)
            texts += view->model()->index(row, column).data().toString();
    }
    return texts.join('|');
}

// Empties the numbers 2 and 3.
static void emptyNumbers()
{
    songs::open();
    songs::clickCell(1, 0);
    songs::clickCell(2, 0, Qt::ShiftModifier);
    songs::chooseForChosen({"Empty these numbers…"});
}

class EarlierVersionsTest : public WindowTest
{
    Q_OBJECT
private slots:
    void aVersion_isBroughtBackAndThatAgain()
    {
        Keeping program({Answer::Ok});
        const QByteArray before = contents(path);
        type(mainWindow, "Title", "Drei");
        click(mainWindow, "Add");
        type(mainWindow, "Title", "Vier");
        click(mainWindow, "Save");
        const QByteArray after = contents(path);
        type(mainWindow, "Author", "typed");
        chooseMenu("Earlier versions…");
        QCOMPARE(textsOf("Versions"), "Archive|1 title changed, 1 new");
        QCOMPARE(textsOf("Differences"), "Title|Three|Drei|||Vier");
        QVERIFY(program.boxesOf(window, "Bring back", {enterKey}).startsWith("There are changes that have"));
        QVERIFY(program.boxesOf(window, "Bring back", {Answer::Yes, enterKey}).contains("4 Vier"));
        QCOMPARE(contents(path) + Module1.recAuthor[4].toUtf8(), after + "typed");
        program.boxesOf(window, "Bring back", {Answer::Yes, Answer::Yes});
        QCOMPARE(contents(path), before);
        QCOMPARE(shownSong(), "3 Three");
        clickRow(window, "Versions", 0);
        program.boxesOf(window, "Bring back");
        QCOMPARE(contents(path), after);
        program.startAnew({}); // what was thrown away is not offered
        QCOMPARE(program.told, QStringList());
    }

    // What the question names is what lies on the disk, and not what was read once.
    void whatAnotherProgramPutThere_isAskedAboutAndKept_data()
    {
        tableOf<QByteArray>(
            {{"more songs", archiveOf({"A|||0", "B|||0", "C|||0", "D|||0", "E|||0"})}, {"damaged", "x"}});
    }
    void whatAnotherProgramPutThere_isAskedAboutAndKept()
    {
        const auto other = tableRow<QByteArray>();
        Keeping program({Answer::Ok});
        const QByteArray before = contents(path);
        type(mainWindow, "Title", "Drei");
        click(mainWindow, "Save");
        put(path, other);
        chooseMenu("Earlier versions…");
        const QString told = program.boxesOf(window, "Bring back", {other == "x" ? Answer::Ok : Answer::Yes});
        QVERIFY2(other == "x" || told.contains("4 D\n5 E"), qPrintable(told));
        QCOMPARE(contents(path), before);
        QCOMPARE(shownSong(), "3 Three");
        const Versions &kept = program.rooms.history->versions;
        QCOMPARE(contents(kept.pathOf(kept.all().first())), other);
    }

    void aSingleSong_isBroughtBackAsAnUnsavedChange()
    {
        Keeping program;
        type(mainWindow, "Title", "Drei");
        press(mainWindow, "Title", Qt::Key_PageUp);
        type(mainWindow, "Title", "Zwei");
        click(mainWindow, "Save");
        chooseMenu("Earlier versions…");
        clickRow(window, "Differences", 1);
        click(window, "Bring back chosen songs");
        QCOMPARE(recordsInMemory().join(' '), "One|||0 Zwei|||0 Three|||7");
        QVERIFY(Module1.archiveChanged);
        undo();
        QCOMPARE(Module1.recTitle[3], "Drei");
    }

    void pagesAndTheOtherFiles_areShownAndBroughtBack()
    {
        Keeping program;
        put("spartiti/3R.jpg", "right");
        putCategories();
        chooseMenu("Earlier versions…"); // it sees what comes while it is open
        waitUntilActive(mainWindow);
        storePage("Right");
        const QByteArray names = contents("spartiti/generi.js");
        QVERIFY(replaceFile("./spartiti/generi.js", QByteArray(names).replace("Rock", "Jazz")).ok());
        waitUntilActive(window);
        QCOMPARE(textsOf("Versions").section('|', 0, 3),
                 "Categories|33 names changed|Right page of 3|replaced");
        clickRow(window, "Versions", 1);
        QVERIFY(control(window, "Page")->isVisible());
        click(window, "Bring back");
        QCOMPARE(contents("spartiti/3R.jpg"), "right");
        clickRow(window, "Versions", 1);
        click(window, "Bring back");
        QCOMPARE(contents("spartiti/generi.js"), names);
        QCOMPARE(Module1.categoryName[1], "Rock");
    }

    // Where the present one cannot be kept, nothing takes its place.
    void aPresentFileThatCannotBeKept_stays()
    {
        Keeping program;
        put("spartiti/3R.jpg", "right");
        storePage("Right");
        put("mine.jpg", "mine");
        QVERIFY(QFile::remove("spartiti/3R.jpg")
                && putLink(QDir("mine.jpg").absolutePath(), "spartiti/3R.jpg"));
        chooseMenu("Earlier versions…");
        clickWithFullDisk(window, "Bring back");
        QVERIFY2(program.told.last().contains("could not be kept"), qPrintable(program.told.last()));
        QCOMPARE(contents("spartiti/3R.jpg"), "mine");
    }

    void numbers_areEmptiedIntoTheVersionsAndUndone()
    {
        Keeping program({Answer::No, Answer::Yes});
        for (const char *file : {"2L.jpg", "2R.jpg", "audio/2.mp3", "3R.jpg"})
            put(QString("spartiti/") + file, file);
        put("spartiti/playlist.js", fileOf("playlist", "\"Sunday\",\"3,1,#\",\r\n\"Monday\",\"1,#\",\r\n"));
        const auto all = [] { return songWithFiles(1) + songWithFiles(2) + songWithFiles(3); };
        const QByteArray before = all(), gone = "|||0 (missing) (missing) (missing) ";
        emptyNumbers();
        QVERIFY(program.told[0].contains("2 Two\n3 Three\n") && program.told[0].endsWith("Sunday: 3"));
        QCOMPARE(all(), before);
        emptyNumbers();
        const QByteArray after = songWithFiles(1) + gone + gone;
        QCOMPARE(all(), after);
        QCOMPARE(program.versions().size(), 4);
        undo();
        QCOMPARE(all(), before);
        QVERIFY(!Module1.archiveChanged);
        undo(Qt::ShiftModifier);
        QCOMPARE(all(), after);
    }

    // The fields of a song go only with its files.
    void aPageThatCannotBeKept_keepsItsSong()
    {
        Keeping program({Answer::Yes, Answer::Ok});
        put("spartiti/2L.jpg", "left");
        QVERIFY(QDir().mkpath("spartiti/3R.jpg")); // a folder of that name
        emptyNumbers();
        QVERIFY(program.told[1].contains("3R.jpg") && program.told[1].contains("1 number keeps its fields."));
        QCOMPARE(Module1.recTitle[2] + Module1.recTitle[3], "Three");
    }
};

QTEST_MAIN(EarlierVersionsTest)
#include "earlier_versions_test.moc"

// What was typed and not saved, at the next start; undo of pages and recordings.
#include "history/kept_folder.h"
#include "support/keeping.h"
#include "window/progress.h"

#include <QDirIterator>

static const QString window = "Tessaline 5.0";

// What keeps what is typed and not saved; empty where there is nothing.
static QString unsavedFile()
{
    QDirIterator files(keptFolder(), {"unsaved-?.json"}, QDir::Files, QDirIterator::Subdirectories);
    return files.hasNext() ? files.next() : QString();
}

// What ends the program, or nearly so, and whether what was typed is offered at the next start.
using Ending = std::pair<std::function<void()>, bool>;
// The button that leads to where files are put in place for song 3, those there before, the song behind it.
using Storing = std::tuple<QString, QStringList, QByteArray>;

class HistoryWindowTest : public WindowTest
{
    Q_OBJECT
private slots:
    void whatWasTyped_isOfferedAtTheNextStart_data()
    {
        tableOf<Answer>({{"Yes", Answer::Yes}, {"No", Answer::No}});
    }
    void whatWasTyped_isOfferedAtTheNextStart()
    {
        const bool isYes = tableRow<Answer>() == Answer::Yes;
        Keeping program;
        press(window, "Title", Qt::Key_PageUp);
        type(window, "Author", "B");
        for (const char *title : {"Four", "Five"}) {
            click(window, "Add");
            type(window, "Title", title);
        }
        leaveByExit();
        program.startAnew({tableRow<Answer>()});
        QCOMPARE(program.told.join('|'),
                 "Tessaline ended before these changes were saved:\n2 Two\n4 Four\n5 Five\n"
                 "Do you want them back?");
        QCOMPARE(shownSong(), isYes ? "5 Five" : "3 Three");
        QCOMPARE(Module1.recAuthor[2], isYes ? "B" : "");
        QCOMPARE(Module1.archiveChanged, isYes);
        // Neither is asked again; what was wanted is kept on, and what was not is a version.
        program.startAnew({Answer::Yes});
        QCOMPARE(program.told.size(), isYes ? 1 : 0);
        QCOMPARE(program.versions(), isYes ? QStringList() : QStringList{"Typed and not saved"});
    }

    void eachEnding_offersOnlyWhatIsNeitherSavedNorGivenUp_data()
    {
        const auto wait = [] { QTRY_VERIFY(!unsavedFile().isEmpty()); };
        const auto close = [] { untilTheEnd([] { windowNamed(window)->close(); }); };
        const auto work = [=] {
            {
                const auto goOn = progressBox("Absorbing"); // the arrays may be half made
                QTest::qWait(2500);
                QVERIFY(unsavedFile().isEmpty());
            }
            wait();
        };
        tableOf<Ending>({
            {"killed after three seconds", {wait, true}},
            {"killed after long work", {work, true}},
            {"Exit at once", {[] { leaveByExit(); }, true}},
            {"Save", {[=] { wait(), click(window, "Save"); }, false}},
            {"Save, Exit", {[] { click(window, "Save"), leaveByExit(); }, false}},
            {"taken back", {[=] { wait(), undo(); }, false}},
            {"close box", {[=] { wait(), close(); }, false}},
        });
    }
    void eachEnding_offersOnlyWhatIsNeitherSavedNorGivenUp()
    {
        const auto [end, isOffered] = tableRow<Ending>();
        const bool isAsked = QTest::currentDataTag() == QByteArray("close box");
        Keeping program({isAsked ? Answer::Yes : Answer::Ok});
        type(window, "Title", "X");
        end();
        QCOMPARE(!unsavedFile().isEmpty(), isOffered);
        program.startAnew({Answer::Yes});
        QCOMPARE(program.told.size(), isOffered ? 1 : 0);
    }

    void whatHappenedMeanwhile_isToldOf_data() { rowsOf({"garbled", "song changed"}); }
    void whatHappenedMeanwhile_isToldOf()
    {
        const bool isGarbled = QTest::currentDataTag() == QByteArray("garbled");
        Keeping program;
        type(window, "Title", "Drei");
        leaveByExit();
        if (isGarbled)
            put(unsavedFile(), contents(unsavedFile()).replace("Drei", "Trei"));
        else
            putArchive({"One|||0", "Two|||0", "Tre|||7"});
        program.startAnew({enterKey});
        QVERIFY(program.told.last().endsWith(
            isGarbled ? "The archive is as it was saved last."
                      : "as they are now: 3. What was typed is kept under \"Earlier versions\"."));
        QCOMPARE(shownSong(), isGarbled ? "3 Three" : "3 Tre");
        program.startAnew({});
        QCOMPARE(program.told, QStringList());
        QCOMPARE(program.versions(), isGarbled ? QStringList() : QStringList{"Typed and not saved"});
    }

    void aDamagedArchive_leavesWhatWasTypedForLater()
    {
        Keeping program;
        type(window, "Title", "Drei");
        leaveByExit();
        const QByteArray good = contents("spartiti/archivio.js");
        put("spartiti/archivio.js", "damaged");
        program.startAnew({Answer::Ok});
        type(window, "Title", "in vain");
        leaveByExit();
        put("spartiti/archivio.js", good);
        program.startAnew({Answer::Yes, Answer::No});
        QVERIFY2(program.told.value(0).contains("3 Drei"), qPrintable(program.told.join('|')));
        QCOMPARE(Module1.recTitle[3], "Drei");
    }

    void aSecondProgram_isTold()
    {
        const Keeping program;
        Rooms second;
        second.beginHistory();
        QVERIFY(program.told.value(0).startsWith("Tessaline is running in this folder already."));
    }

    void whatWasPutInPlace_isUndoneAndRedone_data()
    {
        tableOf<Storing>({{"Left over two pages",
                           {"Left", {"m.jpg", "3L.jpg", "3R.jpg"}, "Three|||7 scan m.jpg (missing) "}},
                          {"a first page", {"Right", {}, "Three|||7 (missing) scan (missing) "}},
                          {"a recording with its category",
                           {"Mp3", {"audio/3.mp3"}, "Three|||9 (missing) (missing) new "}}});
    }
    void whatWasPutInPlace_isUndoneAndRedone()
    {
        const auto [button, present, after] = tableRow<Storing>();
        Keeping program;
        putCategories();
        put("a.mp3", "new");
        for (const QString &file : present)
            put(dataFile(file), file.toUtf8());
        const QByteArray before = songWithFiles(3);
        if (button == "Mp3") {
            click(window, button);
            clickFile("mp3", "a.mp3");
            click("mp3", "Command3(9)");
        } else {
            storePage(button);
        }
        press(window, "Title", Qt::Key_PageUp);
        for (int times = 0; times < 2; times += 1) {
            QCOMPARE(songWithFiles(3), after);
            undo();
            QCOMPARE(songWithFiles(3), before);
            QCOMPARE(shownSong(), "3 Three");
            undo(Qt::ShiftModifier);
        }
        undo();
        QVERIFY(!program.versions().isEmpty()); // what is taken away is kept, too
    }

    // The step that failed is not taken the wrong way round by its opposite.
    void undoWithoutTheVersion_changesNothingAndSaysSo()
    {
        Keeping program;
        put("spartiti/3R.jpg", "right");
        storePage("Right");
        for (const Version &version : program.rooms.history->versions.all())
            QFile::remove(program.rooms.history->versions.pathOf(version));
        undo();
        QVERIFY(program.told.last().startsWith("These could not be undone or done again;"));
        undo(Qt::ShiftModifier);
        QCOMPARE(contents("spartiti/3R.jpg"), "scan");
    }
};

QTEST_MAIN(HistoryWindowTest)
#include "history_window_test.moc"

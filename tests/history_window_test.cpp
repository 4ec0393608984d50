#include "files/data_folder.h"
#include "support/windows.h"

#include <QApplication>
#include <QFileInfo>
#include <QTableView>

static const QString window = "Tessaline 5.0";
static const QString path = "spartiti/archivio.js";

// The program with its history begun, which lies beside the archive for the test.
struct Keeping : Program {
    explicit Keeping(const QList<Answer> &ahead = {})
        : Program(archiveOf({"One|||0", "Two|||0", "Three|||7"}), ahead)
    {
        begin();
    }
    void begin()
    {
        qputenv("XDG_DATA_HOME", QFile::encodeName(QDir::current().filePath("share")));
        rooms.beginHistory();
    }
    // As if the program had been killed, and were started again.
    void startAnew(const QList<Answer> &ahead)
    {
        answers = ahead;
        told.clear();
        rooms.history.reset();
        rooms.form1.reload();
        begin();
    }
};

static QString shown()
{
    return textOf(window, "Text1") + ' ' + textOf(window, "Title");
}

static void undo(Qt::KeyboardModifiers more = {})
{
    press(window, "Title", Qt::Key_Z, Qt::ControlModifier | more);
}

static QString textsOf(const QString &table)
{
    const auto *view = control<QTableView>("Earlier versions", table);
    QStringList texts;
    for (int row = 0; row < view->model()->rowCount(); row += 1) {
        for (int column = 1; column < view->model()->columnCount(); column += 1)
            texts += view->model()->index(row, column).data().toString();
    }
    return texts.join('|');
}

class HistoryWindowTest : public WindowTest
{
    Q_OBJECT
private slots:
    void whatWasTyped_isOfferedAtTheNextStart_data()
    {
        QTest::addColumn<Answer>("answer");
        QTest::addColumn<QString>("title");
        QTest::addColumn<int>("count");
        QTest::addRow("Yes") << Answer::Yes << "4 Four" << 4;
        QTest::addRow("No") << Answer::No << "3 Three" << 3;
    }
    void whatWasTyped_isOfferedAtTheNextStart()
    {
        QFETCH(Answer, answer);
        QFETCH(QString, title);
        QFETCH(int, count);
        Keeping program;
        press(window, "Title", Qt::Key_PageUp);
        type(window, "Author", "B");
        click(window, "Add");
        type(window, "Title", "Four");
        program.rooms.history->end(true);
        program.startAnew({answer});
        QCOMPARE(program.told.join('|'),
                 "Tessaline ended before these changes were saved:\n2 Two\n4 Four\nDo you want them back?");
        QCOMPARE(shown(), title);
        QCOMPARE(Module1.recCount, count);
        QCOMPARE(Module1.recAuthor[2], answer == Answer::Yes ? "B" : "");
        QCOMPARE(Module1.archiveChanged, answer == Answer::Yes);
        // Neither is asked again; what was wanted is kept on, and what was not is a version.
        program.rooms.history->end(true);
        program.startAnew({Answer::Yes});
        QCOMPARE(program.told.size(), answer == Answer::Yes ? 1 : 0);
        QCOMPARE(program.rooms.history->versions.all().size(), answer == Answer::Yes ? 0 : 1);
    }

    void whatWasSavedOrGivenUp_isNotOffered()
    {
        Keeping program;
        type(window, "Title", "Drei");
        program.rooms.history->end(true);
        click(window, "Save");
        program.startAnew({});
        QCOMPARE(program.told, QStringList());
        type(window, "Title", "Tres");
        program.rooms.history->end(false);
        program.startAnew({});
        QCOMPARE(program.told, QStringList());
        QCOMPARE(shown(), "3 Drei");
    }

    void aRecordChangedMeanwhile_isToldOfAndKept()
    {
        Keeping program;
        type(window, "Title", "Drei");
        program.rooms.history->end(true);
        put(path, archiveOf({"One|||0", "Two|||0", "Tre|||7"}));
        program.startAnew({Answer::Yes});
        QVERIFY(program.told.value(1).contains("left as they are now: 3"));
        QCOMPARE(shown(), "3 Tre");
        QCOMPARE(program.rooms.history->versions.all().size(), 1);
    }

    void aSecondProgram_isToldOnce()
    {
        Keeping program;
        Rooms second;
        second.beginHistory();
        QVERIFY(program.told.join("").startsWith("Tessaline is running in this folder already."));
        program.rooms.history.reset(); // or the keeper would be that of the second
    }

    void leftOverTwoPages_isUndoneAndRedone()
    {
        Keeping program;
        put("spartiti/m.jpg", "empty");
        put("spartiti/3L.jpg", "left");
        put("spartiti/3R.jpg", "right");
        put("scan.jpg", "scan");
        click(window, "Left");
        clickFile("Left page", "scan.jpg");
        click("Left page", "Ok");
        const auto pages = [] { return contents("spartiti/3L.jpg") + contents("spartiti/3R.jpg"); };
        QCOMPARE(pages(), "scanempty");
        press(window, "Title", Qt::Key_PageUp);
        undo();
        QCOMPARE(pages(), "leftright");
        QCOMPARE(shown(), "3 Three");
        undo(Qt::ShiftModifier);
        QCOMPARE(pages(), "scanempty");
        undo();
        QCOMPARE(pages(), "leftright");
    }

    void aFirstPage_isTakenAwayIntoTheVersions()
    {
        Keeping program;
        put("scan.jpg", "scan");
        click(window, "Right");
        clickFile("Right page", "scan.jpg");
        click("Right page", "Ok");
        undo();
        QVERIFY(!QFileInfo::exists("spartiti/3R.jpg"));
        QCOMPARE(program.rooms.history->versions.all().size(), 1);
        undo(Qt::ShiftModifier);
        QCOMPARE(contents("spartiti/3R.jpg"), "scan");
    }

    void aVersion_isBroughtBackAndThatAgain()
    {
        Keeping program({Answer::Ok});
        const QByteArray before = contents(path);
        type(window, "Title", "Drei");
        click(window, "Add");
        type(window, "Title", "Vier");
        click(window, "Save");
        const QByteArray after = contents(path);
        chooseMenu("Earlier versions…");
        QCOMPARE(textsOf("Versions"), "Archive|1 title changed, 1 new");
        QCOMPARE(textsOf("Differences"), "Title|Three|Drei|||Vier");
        program.answers = {Answer::No};
        click("Earlier versions", "Bring back");
        QVERIFY(program.told.value(1).contains("4 Vier"));
        QCOMPARE(contents(path), after);
        program.answers = {Answer::Yes, Answer::Ok};
        click("Earlier versions", "Bring back");
        QCOMPARE(contents(path), before);
        QCOMPARE(shown(), "3 Three");
        program.answers = {Answer::Ok};
        clickRow("Earlier versions", "Versions", 0);
        click("Earlier versions", "Bring back");
        QCOMPARE(contents(path), after);
    }

    void aSingleSong_isBroughtBackAsAnUnsavedChange()
    {
        Keeping program;
        type(window, "Title", "Drei");
        press(window, "Title", Qt::Key_PageUp);
        type(window, "Title", "Zwei");
        click(window, "Save");
        chooseMenu("Earlier versions…");
        clickRow("Earlier versions", "Differences", 1);
        QCOMPARE(textsOf("Differences"), "Title|Two|Zwei|Title|Three|Drei");
        click("Earlier versions", "Bring back chosen songs");
        QCOMPARE(Module1.recTitle[3], "Three");
        QCOMPARE(Module1.recTitle[2], "Zwei");
        QVERIFY(Module1.archiveChanged);
        waitUntilActive(window);
        undo();
        QCOMPARE(Module1.recTitle[3], "Drei");
    }
};

QTEST_MAIN(HistoryWindowTest)
#include "history_window_test.moc"

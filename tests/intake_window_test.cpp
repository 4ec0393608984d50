#include "support/windows.h"

#include <QBuffer>
#include <QDir>
#include <QDropEvent>
#include <QFileInfo>
#include <QImage>
#include <QMenu>
#include <QMimeData>
#include <QTableView>
#include <QUrl>

static const QString window = "Bring in songs";

static QByteArray picture(const char *format, QColor colour)
{
    QImage image(40, 60, QImage::Format_RGB32);
    image.fill(colour);
    QBuffer buffer;
    image.save(&buffer, format);
    return buffer.data();
}

static void drop(QWidget *target, const QStringList &paths)
{
    QMimeData data;
    QList<QUrl> urls;
    for (const QString &path : paths)
        urls += path.contains("://") ? QUrl(path) : QUrl::fromLocalFile(QFileInfo(path).absoluteFilePath());
    data.setUrls(urls);
    const QPoint at = target->rect().center();
    QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(target, &enter);
    QDropEvent event(at, Qt::CopyAction, &data, Qt::LeftButton, {});
    if (enter.isAccepted())
        QCoreApplication::sendEvent(target, &event);
    QCoreApplication::processEvents();
}

static QTableView *table()
{
    return control<QTableView>(window, "Songs to bring in");
}

static QString cell(int row, int column)
{
    return table()->model()->index(row, column).data().toString();
}

static bool isTicked(int row)
{
    return table()->model()->index(row, 0).data(Qt::CheckStateRole).toInt() == Qt::Checked;
}

static void clickCell(int row, int column, Qt::KeyboardModifiers held = {})
{
    table()->scrollTo(table()->model()->index(row, column));
    const QPoint at = table()->visualRect(table()->model()->index(row, column)).center();
    QTest::mouseClick(table()->viewport(), Qt::LeftButton, held, at);
}

// An entry of the context menu, opened by its key.
static void choose(const QString &entry)
{
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
    QCoreApplication::sendEvent(table(), &event);
    auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    for (QAction *action : menu ? menu->actions() : QList<QAction *>()) {
        if (action->text().section('\t', 0, 0) == entry && action->isEnabled())
            return QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
    }
    failTest("no entry " + entry);
}

struct Intake : Program {
    Intake()
    {
        put("in/Menuet-L.jpg", picture("jpg", Qt::red));
        put("in/Menuet-R.jpg", picture("jpg", Qt::blue));
        put("in/Largo.png", picture("png", Qt::green));
        put("in/One.jpg", picture("jpg", Qt::yellow));
        put("in/text.jpg", "text");
    }
};

class IntakeWindowTest : public WindowTest
{
    Q_OBJECT
private slots:
    void aFolder_isLookedThroughAndBroughtIn()
    {
        Intake program;
        program.answers = {Answer::Ok};
        press("Form1", "Text2", Qt::Key_I, Qt::ControlModifier);
        waitUntilActive(window);
        drop(table(), {"in"});
        QCOMPARE(table()->model()->rowCount(), 4);
        QCOMPARE(cell(0, 4) + cell(1, 4) + cell(2, 4) + cell(3, 4), "LargoMenuetOnetext");
        QCOMPARE(cell(2, 8), "in the archive as no. 1");
        QVERIFY(isTicked(0) && isTicked(1) && !isTicked(2));
        QTRY_VERIFY(cell(3, 8).contains("it is not a picture")); // once it is seen
        QVERIFY(!isTicked(3));
        clickCell(1, 1);
        choose("Exchange pages");
        clickCell(0, 5);
        clickCell(1, 5, Qt::ShiftModifier);
        QTest::keyClick(table(), Qt::Key_F2);
        QTest::keyClicks(QApplication::focusWidget(), "Anna");
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QTRY_COMPARE(cell(1, 5), "Anna");
        click(window, "Make a playlist of them");
        type(window, "Playlist", "Evening");
        click(window, "Bring in");
        QCOMPARE(program.told.join('|'),
                 "2 songs were brought in, as numbers 4 to 5. They make the playlist \"Evening\".");
        QCOMPARE(contents("spartiti/archivio.js"),
                 archiveOf({"One|||0", "Two|||0", "Three|||7", "Largo|Anna||0", "Menuet|Anna||0"}));
        QCOMPARE(contents("spartiti/5L.jpg"), contents("in/Menuet-R.jpg"));
        QVERIFY(contents("spartiti/playlist.js").contains("\"Evening\",\"4,5,#\""));
        QCOMPARE(textOf("Form1", "Text2"), "Largo");
        QCOMPARE(table()->model()->rowCount(), 2); // those that did not come
    }

    void rows_areHalvedJoinedTickedAndUndone()
    {
        Intake program;
        chooseMenu("Bring in songs…");
        waitUntilActive(window);
        drop(windowNamed(window), {"in/Largo.png", "in/Menuet-L.jpg"});
        clickCell(0, 1);
        choose("Halve");
        QCOMPARE(cell(0, 2), "Largo.png, right half");
        QTest::keyClick(table(), Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(cell(0, 2), QString());
        clickCell(1, 4);
        choose("Join with the one above");
        QCOMPARE(table()->model()->rowCount(), 1);
        clickCell(0, 2);
        QTest::keyClick(table(), Qt::Key_T, Qt::ControlModifier);
        QCOMPARE(cell(0, 2), "Menuet-L.jpg, turned");
        choose("New song begins here");
        QCOMPARE(table()->model()->rowCount(), 2);
        clickCell(0, 4);
        QTest::keyClick(table(), Qt::Key_Space);
        QVERIFY(!isTicked(0) && isTicked(1));
        program.answers = {Answer::No, Answer::Yes};
        QTest::keyClick(table(), Qt::Key_Escape);
        QVERIFY(windowNamed(window));
        QTest::keyClick(table(), Qt::Key_Escape);
        QVERIFY(!windowNamed(window));
    }

    void onTheMainWindow_aPageOrARecordingIsStoredAndUndone()
    {
        Intake program;
        program.rooms.beginHistory();
        put("spartiti/3L.jpg", "old left");
        put("spartiti/3R.jpg", "old right");
        put("spartiti/m.jpg", "empty");
        put("in/sound.mp3", "sound");
        drop(control<QWidget>("Form1", "Left page"), {"in/Menuet-L.jpg"});
        QCOMPARE(contents("spartiti/3L.jpg"), contents("in/Menuet-L.jpg"));
        QCOMPARE(contents("spartiti/3R.jpg"), QByteArray("old right"));
        drop(windowNamed("Form1"), {"in/sound.mp3"});
        QCOMPARE(contents("spartiti/audio/3.mp3"), QByteArray("sound"));
        QCOMPARE(Module1.recCategory[3], "7");
        press("Form1", "Text2", Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(!QFileInfo::exists("spartiti/audio/3.mp3"));
        press("Form1", "Text2", Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(contents("spartiti/3L.jpg"), QByteArray("old left"));
        QVERIFY(!windowNamed(window));
    }

    void onTheMainWindow_anythingElseIsBroughtIn_data()
    {
        QTest::addColumn<QStringList>("paths");
        QTest::addColumn<int>("rows"); // -1: the window does not open
        QTest::newRow("a folder") << QStringList("in") << 4;
        QTest::newRow("two files") << QStringList({"in/One.jpg", "in/Largo.png"}) << 2;
        QTest::newRow("a png") << QStringList("in/Largo.png") << 1;
        QTest::newRow("a link to a file") << QStringList({"in/link.png"}) << 1;
        QTest::newRow("a broken link") << QStringList({"in/nothing.png"}) << 0;
        QTest::newRow("a web address") << QStringList("https://example.org/a.jpg") << -1;
        QTest::newRow("a text named so") << QStringList("in/text.jpg") << -1;
    }
    void onTheMainWindow_anythingElseIsBroughtIn()
    {
        Intake program;
        QFile::link("Largo.png", "in/link.png");
        QFile::link("nowhere", "in/nothing.png");
        QFETCH(QStringList, paths);
        QFETCH(int, rows);
        if (paths[0] == "in")
            QDir("in").remove("link.png");
        drop(control<QWidget>("Form1", "Left page"), paths);
        QVERIFY(!QFileInfo::exists("spartiti/3L.jpg"));
        QCOMPARE(windowNamed(window) ? table()->model()->rowCount() : -1, rows);
    }

    void whatCannotBeMade_isNamedInItsRowAndTheRestComes()
    {
        Intake program;
        const QByteArray whole = picture("png", Qt::red);
        put("in/Cut.png", whole.first(whole.size() * 2 / 3));
        chooseMenu("Bring in songs…");
        drop(windowNamed(window), {"in/Cut.png", "in/Largo.png"});
        QTRY_VERIFY(!isTicked(0)); // once it is seen
        clickCell(0, 0);
        program.answers = {Answer::Yes, Answer::Ok};
        click(window, "Bring in");
        QVERIFY(program.told.value(0).contains("Bring in the other 1 song?"));
        QCOMPARE(program.told.value(1), "1 song was brought in, as number 4.");
        QVERIFY2(cell(0, 8).contains("Cut.png: it is broken"), qPrintable(cell(0, 8)));
        QCOMPARE(contents("spartiti/archivio.js"),
                 archiveOf({"One|||0", "Two|||0", "Three|||7", "Largo|||0"}));
    }

    void whatCannotBe_isSaid()
    {
        Intake program;
        put("spartiti/archivio.js", archiveOf({"Other|||0"}));
        chooseMenu("Bring in songs…");
        drop(windowNamed(window), {"in/Largo.png"});
        click(window, "Bring in");
        QVERIFY(program.told.join('|').contains("Nothing was brought in"));
        QVERIFY(program.told.join('|').contains("Another program has changed"));
        QCOMPARE(contents("spartiti/archivio.js"), archiveOf({"Other|||0"}));
    }
};

QTEST_MAIN(IntakeWindowTest)
#include "intake_window_test.moc"

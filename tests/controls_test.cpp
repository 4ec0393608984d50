#include "controls/scroll_bar.h"
#include "controls/text_box.h"
#include "pages/page_image.h"
#include "support/windows.h"

#include <QAction>
#include <QApplication>
#include <QBuffer>
#include <QClipboard>

#include <QMenu>
#include <QMimeData>
#include <QPainter>
#include <QSignalSpy>
#include <QToolTip>
#include <QUrl>
#include <QWheelEvent>

#include <ctime>
#include <numeric>

// A picture of a red left and a blue right half.
static QByteArray halves(QSize size, const char *format)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::red);
    QPainter(&image).fillRect(QRect({size.width() / 2, 0}, size), Qt::blue);
    QBuffer buffer;
    image.save(&buffer, format, 95);
    return buffer.data();
}

// The same JPEG with an EXIF block that says how it is turned.
static QByteArray turned(QByteArray jpeg, char orientation)
{
    const QByteArray exif("\xFF\xE1\x00\x22"
                          "Exif\0\0MM\0*\0\0\0\x08\0\x01\x01\x12\0\x03\0\0\0\x01\0",
                          29);
    return jpeg.insert(2, exif + orientation + QByteArray(6, '\0'));
}

// The same JPEG claiming to be 65,500 pixels high and wide in its frame header.
static QByteArray absurd(QByteArray jpeg)
{
    return jpeg.replace(jpeg.indexOf("\xFF\xC0") + 5, 4, "\xFF\xDC\xFF\xDC");
}

static void chooseFromMenu(TextBox &box, const QString &entry)
{
    QTest::mouseClick(box.window()->windowHandle(), Qt::RightButton, {},
                      box.mapTo(box.window(), QPoint(5, 5)));
    auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    QVERIFY(menu);
    for (QAction *action : menu->actions()) {
        if (action->text().remove('&').section('\t', 0, 0) == entry)
            QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
    }
    menu->close();
}

// Puts text into a box as a person does.
static void enter(TextBox &box, const QString &way, const QString &text)
{
    QGuiApplication::clipboard()->setText(text);
    if (way == "keys") {
        QKeyEvent event(QEvent::KeyPress, Qt::Key_unknown, {}, text);
        QApplication::sendEvent(&box, &event);
    } else if (way == "input method") {
        QInputMethodEvent event;
        event.setCommitString(text);
        QApplication::sendEvent(&box, &event);
    } else if (way == "paste") {
        QTest::keyClick(&box, Qt::Key_V, Qt::ControlModifier);
    } else if (way == "Shift+Insert") {
        QTest::keyClick(&box, Qt::Key_Insert, Qt::ShiftModifier);
    } else if (way == "menu") {
        chooseFromMenu(box, "Paste");
    } else if (way == "drop") {
        QMimeData data;
        data.setText(text);
        QDragEnterEvent over({1, 5}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(&box, &over);
        QDropEvent event({1, 5}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(&box, &event);
    }
}

class ControlsTest : public WindowTest
{
    Q_OBJECT
private slots:
    void typedText_isWhatFilesCarry_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("taken");
        QTest::addColumn<QString>("leftOut");
        const std::tuple<const char *, QString, QString, QString> rows[] = {
            {"quotes", " \"Für Elise, €\"", " 'Für Elise, €'", {}},
            {"breaks and blanks", "a\\b\r\nc\nd\te\u2009f", "a/b c d e f", {}},
            {"letters", "e\u0300, Dvořák, ő Łódź", "è, Dvorák, o Lódz", {}},
            {"signs", "a→b😀→\u200B", "ab", "→ 😀 U+200B"},
            {"markup", "<b>☃</b>", "<b></b>", "☃"},
            {"eleven", "→←↑↓↔↕↖↗↘↙↚", {}, "→ ← ↑ ↓ ↔ ↕ ↖ ↗ ↘ ↙ …"},
            {"half a sign", QString(QChar(0xD83D)), {}, "\uFFFD"},
        };
        for (const auto &[name, typed, taken, leftOut] : rows)
            QTest::addRow("%s", name) << typed << taken << leftOut;
    }

    void typedText_isWhatFilesCarry()
    {
        QFETCH(QString, typed);
        const TypedText carried = carriedByFiles(typed);
        QTEST(carried.text, "taken");
        QTEST(carried.leftOut.join(' '), "leftOut");
    }

    void textBox_takesTheSameByEveryWay_data()
    {
        QTest::addColumn<QString>("way");
        for (const char *way : {"keys", "input method", "paste", "Shift+Insert", "menu", "drop"})
            QTest::addRow("%s", way) << QString(way);
    }

    void textBox_takesTheSameByEveryWay()
    {
        QFETCH(QString, way);
        TextBox box(nullptr);
        box.show();
        box.setText("a\\b");
        box.selectAll();
        enter(box, way, "😀\u200B");
        QCOMPARE(box.selectedText(), way == "drop" ? "" : "a\\b");
        QCOMPARE(box.text(), "a\\b");
        QVERIFY(QToolTip::isVisible());
        QVERIFY2(QToolTip::text().endsWith("😀 U+200B"), qPrintable(QToolTip::text()));
        enter(box, way, "\"ő\t😀");
        QCOMPARE(box.text(), way == "drop" ? "'o a\\b" : "'o ");
        QTest::keyClick(&box, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(box.text(), "a\\b");
        box.setReadOnly(true);
        enter(box, way, "c");
        QCOMPARE(box.text(), "a\\b");
        QToolTip::hideText();
    }

    void textBox_composesAnAccentWithItsLetter_data()
    {
        QTest::addColumn<QString>("way");
        for (const char *way : {"keys", "input method", "paste"})
            QTest::addRow("%s", way) << QString(way);
    }

    void textBox_composesAnAccentWithItsLetter()
    {
        QFETCH(QString, way);
        TextBox box(nullptr);
        box.setText("[]");
        box.setCursorPosition(1);
        for (const QString typed : {"e", "\u0301", "x", "\u030C", "q", "\u0301s"})
            enter(box, way, typed);
        QCOMPARE(box.text(), "[éxqs]");
        QCOMPARE(box.cursorPosition(), 5);
    }

    void textBox_givesBackWhatAnInputMethodBeganOver()
    {
        TextBox box(nullptr);
        box.setText("abc");
        const auto compose = [&](const QString &shown, const QString &committed, int replaced = 0) {
            QInputMethodEvent event(shown, {});
            event.setCommitString(committed, -replaced, replaced);
            QApplication::sendEvent(&box, &event);
        };
        box.selectAll();
        compose(":smi", {});
        compose({}, "😀");
        QCOMPARE(box.text(), "abc");
        compose({}, "😀", 2);
        QCOMPARE(box.text(), "abc");
        box.selectAll();
        compose("d", {});
        compose("e", "d");
        compose({}, "😀");
        QCOMPARE(box.text(), "d");
    }

    void textBox_undoesAPastingByItself()
    {
        TextBox box(nullptr);
        enter(box, "paste", "\"12");
        QTest::keyClicks(&box, "3\"");
        enter(box, "paste", "45");
        enter(box, "paste", "67");
        for (const QString left : {"'123'45", "'123'", "'12", ""}) {
            QTest::keyClick(&box, Qt::Key_Z, Qt::ControlModifier);
            QCOMPARE(box.text(), left);
        }
    }

    void textBox_leavesUndoToTheWindow()
    {
        QWidget window;
        TextBox box(&window);
        QAction undo("Undo title of 12");
        QAction redo("Redo");
        undo.setShortcuts(QKeySequence::Undo);
        redo.setShortcuts({QKeySequence("Ctrl+Shift+Z"), QKeySequence("Ctrl+Y")});
        window.addActions({&undo, &redo});
        const QSignalSpy undone(&undo, &QAction::triggered);
        const QSignalSpy redone(&redo, &QAction::triggered);
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QTest::keyClicks(&box, "a");
        const auto pressAll = [&] {
            QTest::keyClick(&box, Qt::Key_Z, Qt::ControlModifier);
            QTest::keyClick(&box, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
            QTest::keyClick(&box, Qt::Key_Y, Qt::ControlModifier);
        };
        pressAll();
        QCOMPARE(undone.size(), 0);
        QCOMPARE(box.text(), "a");

        box.leaveUndoTo(&undo, &redo);
        pressAll();
        QCOMPARE(undone.size(), 1);
        QCOMPARE(redone.size(), 2);
        chooseFromMenu(box, "Undo title of 12");
        QCOMPARE(undone.size(), 2);
        window.removeAction(&undo);
        pressAll();
        QCOMPARE(box.text(), "a");
    }

    void textBox_takesNoFiles()
    {
        TextBox box(nullptr);
        QMimeData data;
        data.setText("/tmp/1L.jpg");
        for (const auto &[url, taken] :
             {std::pair("file:///tmp/1L.jpg", false), {"https://a.b/1L.jpg", true}}) {
            data.setUrls({QUrl(url)});
            QDragEnterEvent event({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, {});
            QApplication::sendEvent(&box, &event);
            QCOMPARE(event.isAccepted(), taken);
        }
    }

    void textBox_takesALongTextAtOnce()
    {
        QString letters(100'000, u'x');
        QList<uint> different(100'000);
        std::iota(different.begin(), different.end(), 0x100u);
        TextBox box(nullptr);
        enter(box, "paste", letters);
        QCOMPARE(box.text(), letters);
        box.clear();
        const std::clock_t start = std::clock();
        enter(box, "paste",
              QString::fromUcs4(reinterpret_cast<const char32_t *>(different.constData()), different.size()));
        QVERIFY((std::clock() - start) * 1000 / CLOCKS_PER_SEC < 300);
    }

    void scrollBar_movesByOne()
    {
        ScrollBar bar(nullptr);
        bar.setRange(1, 100);
        bar.setValue(50);
        bar.resize(30, 600);
        bar.show();
        QWheelEvent event({5, 5}, {5, 5}, {}, {0, -120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                          false);
        QApplication::sendEvent(&bar, &event);
        QTest::mouseClick(&bar, Qt::LeftButton, {}, {15, 580});
        QCOMPARE(bar.value(), 52);
    }

    void decodePage_showsWhatCanBeShown()
    {
        const QByteArray page = halves({2000, 3000}, "JPG");
        const std::pair<QByteArray, QColor> rows[] = {
            // and the colour of the top right; none if not shown
            {page, Qt::blue},
            {turned(page, 6), Qt::red},
            {turned(page, 8), Qt::blue},
            {halves({20, 30}, "PNG"), Qt::blue},
            {page.first(page.size() / 3), Qt::blue},
            {absurd(page), {}},
        };
        for (const auto &[file, topRight] : rows) {
            const TestFolder folder;
            put("1L.jpg", file);
            const QImage image = decodePage("1L.jpg", {329, 281});
            QCOMPARE(image.size(), topRight.isValid() ? QSize(329, 281) : QSize(0, 0));
            const QColor seen = image.isNull() ? QColor() : image.pixelColor(300, 20);
            QVERIFY(qAbs(seen.red() - topRight.red()) < 40 && qAbs(seen.blue() - topRight.blue()) < 40);
        }
    }
};

QTEST_MAIN(ControlsTest)
#include "controls_test.moc"

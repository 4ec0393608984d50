#include "controls/button.h"
#include "controls/file_drop.h"
#include "controls/image_frame.h"
#include "controls/row_list.h"
#include "controls/scroll_bar.h"
#include "controls/text_box.h"
#include "support/windows.h"

#include <QAction>
#include <QClipboard>
#include <QSignalSpy>
#include <QToolTip>
#include <QUrl>
#include <QWheelEvent>

#include <ctime>
#include <numeric>

// In eighths of a degree; 120 are a notch, away from the person where positive.
static void turnWheel(QWidget &widget, int angle)
{
    QWheelEvent event({5, 5}, {5, 5}, {}, {0, angle}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&widget, &event);
}

// Puts text into a box as a person does.
static void enter(TextBox &box, const QString &way, const QString &text)
{
    QGuiApplication::clipboard()->setText(text);
    QInputMethodEvent composed;
    composed.setCommitString(text);
    QKeyEvent typed(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, text);
    QMimeData dragged;
    dragged.setText(text);
    if (way == "keys")
        QApplication::sendEvent(&box, &typed);
    else if (way == "input method")
        QApplication::sendEvent(&box, &composed);
    else if (way == "paste")
        QTest::keyClick(&box, Qt::Key_V, Qt::ControlModifier);
    else if (way == "menu")
        chooseByRightClick(&box, "Paste");
    else
        drop(&box, dragged, {1, 5});
}

using Typed = std::tuple<QString, QString, QString>; // typed, what is taken of it, what the tip names

class ControlsTest : public WindowTest
{
    Q_OBJECT
private slots:
    void button_isFlatAndShowsItsState()
    {
        QWidget window;
        window.setObjectName("window");
        Button button(&window), other(&window);
        button.setGeometry(10, 10, 100, 40);
        other.setFocus();
        window.show();
        waitUntilActive("window");
        const auto face = [&] { return button.grab().toImage().copy(3, 3, 94, 34); };
        QList<QImage> faces{face()};
        QImage flat(faces[0].size(), faces[0].format());
        flat.fill(QColor(160, 203, 254));
        QCOMPARE(faces[0], flat);
        const QImage whole = button.grab().toImage();
        button.setFocus();
        QVERIFY(button.grab().toImage() != whole);
        QTest::mouseMove(window.windowHandle(), {50, 30});
        faces += face();
        QTest::mousePress(&button, Qt::LeftButton);
        faces += face();
        button.setEnabled(false);
        faces += face();
        for (qsizetype i = 0; i < faces.size(); i += 1)
            QCOMPARE(faces.indexOf(faces[i]), i);
    }

    void scrollBar_movesByOneAndWhenTheThumbIsLetGo()
    {
        ScrollBar bar(nullptr);
        bar.setRange(1, 100);
        bar.setValue(50);
        bar.resize(30, 600);
        bar.show();
        turnWheel(bar, -120);
        QTest::mouseClick(&bar, Qt::LeftButton, {}, {15, 580});
        QCOMPARE(bar.value(), 52);
        QTest::mouseClick(&bar, Qt::LeftButton, {}, {15, 500});
        QTest::keyClick(&bar, Qt::Key_Up);
        for (int i = 0; i < 4; i += 1)
            turnWheel(bar, 60);
        QCOMPARE(bar.value(), 50);
        QTest::keyClick(&bar, Qt::Key_Home);
        QTest::mousePress(&bar, Qt::LeftButton, {}, {15, 25});
        QTest::mouseMove(&bar, {15, 300});
        turnWheel(bar, -120);
        QCOMPARE(bar.value(), 1);
        QTest::mouseRelease(&bar, Qt::LeftButton, {}, {15, 300});
        QCOMPARE(bar.value(), bar.sliderPosition());
        QVERIFY(bar.value() > 40);
    }

    void rowList_skipsNoRow()
    {
        RowList list(nullptr);
        list.takeRows();
        list.show();
        const auto rowAfter = [&](Qt::Key key) {
            QTest::keyClick(&list, key);
            return list.selectedRows().value(0, -1);
        };
        list.replaceRows(0, 0, {"a lone row"});
        QCOMPARE(rowAfter(Qt::Key_Down), 0);
        list.replaceRows(0, 1, QStringList(800, "row"));
        list.scrollToItem(list.item(300), QAbstractItemView::PositionAtTop);
        QCOMPARE(rowAfter(Qt::Key_Down), 300);
        list.replaceRows(300, 1, {});
        QCOMPARE(rowAfter(Qt::Key_Down), 300);
        list.replaceRows(300, 1, {});
        QCOMPARE(rowAfter(Qt::Key_Up), 299);
    }

    void typedText_isWhatFilesCarry_data()
    {
        tableOf<Typed>({{"quotes", {" \"Für Elise, €\"", " 'Für Elise, €'", {}}},
                        {"breaks and blanks", {"a\\b\r\nc\nd\te\u2009f", "a/b c d e f", {}}},
                        {"letters", {"e\u0300, Dvořák, ő Łódź", "è, Dvorák, o Lódz", {}}},
                        {"a point within", {"Paraŀlel", "Parallel", {}}},
                        {"where pieces meet", {QString(767, u'x') + "e\u0301", QString(767, u'x') + "é", {}}},
                        {"signs", {"a→b😀→\u200B", "ab", "→ 😀 U+200B"}},
                        {"eleven", {"→←↑↓↔↕↖↗↘↙↚", {}, "→ ← ↑ ↓ ↔ ↕ ↖ ↗ ↘ ↙ …"}}});
    }
    void typedText_isWhatFilesCarry()
    {
        const auto [typed, taken, leftOut] = tableRow<Typed>();
        const TypedText carried = carriedByFiles(typed);
        QCOMPARE(carried.text, taken);
        QCOMPARE(carried.leftOut.join(' '), leftOut);
    }

    void textBox_takesTheSameByEveryWay_data() { rowsOf({"keys", "input method", "paste", "menu", "drop"}); }
    void textBox_takesTheSameByEveryWay()
    {
        const QString way = QTest::currentDataTag();
        TextBox box(nullptr);
        box.show();
        box.setText("a\\b");
        box.selectAll();
        enter(box, way, "😀\u200B");
        QCOMPARE(box.selectedText(), way == "drop" ? "" : "a\\b");
        QCOMPARE(box.text(), "a\\b");
        const QWidget *tip = windowNamed("qtooltip_label");
        QVERIFY(tip
                && tip->windowHandle()->flags().testFlag(Qt::WindowTransparentForInput)); // takes no clicks
        QVERIFY2(QToolTip::text().endsWith("😀 U+200B"), qPrintable(QToolTip::text()));
        enter(box, way, "\"ő\t😀");
        QCOMPARE(box.text(), way == "drop" ? "'o a\\b" : "'o ");
        QTest::keyClick(&box, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(box.text(), "a\\b");
        QToolTip::hideText();
        if (way == "drop")
            return; // it comes where no letter stands before it
        box.setText("[]");
        box.setCursorPosition(1);
        for (const QString typed : {"e", "\u0301", "x", "\u030C"}) // an accent goes with its letter
            enter(box, way, typed);
        QCOMPARE(box.text() + QString::number(box.cursorPosition()), "[éx]3");
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
        box.end(false);
        compose({}, "d");
        compose({}, "😀", 2);
        box.selectAll();
        compose({}, "😀");
        QCOMPARE(box.text(), "abcd");
    }

    void textBox_undoesAPastingByItself_orLeavesUndoToTheWindow()
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
        QAction undo, redo;
        box.leaveUndoTo(&undo, &redo);
        QTest::keyClicks(&box, "a");
        QTest::keyClick(&box, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(box.text(), "a");
    }

    void textBox_takesALongTextInNoTime()
    {
        std::u32string different(100'000, U' ');
        std::iota(different.begin(), different.end(), U'\u0100');
        TextBox box(nullptr);
        const std::clock_t start = std::clock();
        enter(box, "paste", QString::fromStdU32String(different).repeated(4));
        QVERIFY((std::clock() - start) * 1000 / CLOCKS_PER_SEC < 1000);
    }

    void imageFrame_isOpenedByDoubleClickOrEnter_notByAClick()
    {
        ImageFrame frame(nullptr);
        const QSignalSpy opened(&frame, &ImageFrame::opened);
        QTest::mouseClick(&frame, Qt::LeftButton);
        QTest::mouseDClick(&frame, Qt::LeftButton);
        QTest::keyClick(&frame, Qt::Key_Enter);
        QTest::keyClick(&frame, Qt::Key_Return);
        QCOMPARE(opened.size(), 3);
    }

    void fileDrop_takesFilesAndLeavesThemWhereTheyAre()
    {
        QWidget window;
        TextBox box(&window);
        const FileDrop fileDrop(&window);
        QSignalSpy dropped(&fileDrop, &FileDrop::dropped);
        QMimeData data;
        data.setText("text");
        QCOMPARE(drop(&window, data, {5, 5}), Qt::IgnoreAction);
        data.setUrls({QUrl("https://a.b/c.jpg")});
        QVERIFY(drop(&box, data, {5, 5}) != Qt::IgnoreAction); // which takes it as a text, but no files
        data.setUrls(data.urls() + QList{QUrl("file:///tmp/a%20b.jpg"), QUrl("file:///tmp/%23")});
        QCOMPARE(drop(&box, data, {5, 5}), Qt::CopyAction);
        QVERIFY(dropped.wait() && dropped.size() == 1);
        QCOMPARE(dropped[0][0].toStringList(), QStringList({"/tmp/a b.jpg", "/tmp/#"}));
    }
};

QTEST_MAIN(ControlsTest)
#include "controls_test.moc"

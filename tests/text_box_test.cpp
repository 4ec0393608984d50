#include "controls/text_box.h"
#include "support/table.h"
#include "support/windows.h"

#include <QAction>
#include <QClipboard>
#include <QToolTip>

#include <algorithm>
#include <ctime>
#include <numeric>

// Puts text into a box as a person does.
static void enter(TextBox &box, const QString &way, const QString &text)
{
    QGuiApplication::clipboard()->setText(text);
    QInputMethodEvent composed;
    composed.setCommitString(text);
    const auto held = way == "keys" ? Qt::NoModifier : Qt::ControlModifier | Qt::ShiftModifier;
    QKeyEvent typed(QEvent::KeyPress, Qt::Key_unknown, held, text);
    QMimeData dragged;
    dragged.setText(text);
    if (way == "keys" || way == "Ctrl+Shift and a key")
        QApplication::sendEvent(&box, &typed);
    else if (way == "input method")
        QApplication::sendEvent(&box, &composed);
    else if (way == "paste")
        QTest::keyClick(&box, Qt::Key_V, Qt::ControlModifier);
    else if (way == "Shift+Insert")
        QTest::keyClick(&box, Qt::Key_Insert, Qt::ShiftModifier);
    else if (way == "menu")
        chooseByRightClick(&box, "Paste");
    else
        drop(&box, dragged, {1, 5});
}

using Typed = std::tuple<QString, QString, QString>; // typed, what is taken of it, what the tip names

class TextBoxTest : public WindowTest
{
    Q_OBJECT
private slots:
    void typedText_isWhatFilesCarry_data()
    {
        tableOf<Typed>({{"quotes", {" \"Für Elise, €\"", " 'Für Elise, €'", {}}},
                        {"breaks and blanks", {"a\\b\r\nc\nd\te\u2009f", "a/b c d e f", {}}},
                        {"letters", {"e\u0300, Dvořák, ő Łódź", "è, Dvorák, o Lódz", {}}},
                        {"accents", {"x\u030C \u0301", "x ", {}}},
                        {"a point within", {"Paraŀlel", "Parallel", {}}},
                        {"where pieces meet", {QString(767, u'x') + "e\u0301", QString(767, u'x') + "é", {}}},
                        {"a sign where pieces meet", {QString(255, u'x') + "😀", QString(255, u'x'), "😀"}},
                        {"signs", {"a→b😀→\u200B", "ab", "→ 😀 U+200B"}},
                        {"markup", {"<b>☃</b>", "<b></b>", "☃"}},
                        {"eleven", {"→←↑↓↔↕↖↗↘↙↚", {}, "→ ← ↑ ↓ ↔ ↕ ↖ ↗ ↘ ↙ …"}},
                        {"half a sign", {QString(QChar(0xD83D)), {}, "\uFFFD"}}});
    }

    void typedText_isWhatFilesCarry()
    {
        const auto [typed, taken, leftOut] = tableRow<Typed>();
        const TypedText carried = carriedByFiles(typed);
        QCOMPARE(carried.text, taken);
        QCOMPARE(carried.leftOut.join(' '), leftOut);
    }

    void textBox_takesTheSameByEveryWay_data()
    {
        rowsOf({"keys", "input method", "paste", "Shift+Insert", "menu", "drop"});
    }

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
        const QWidgetList all = QApplication::topLevelWidgets();
        const auto tip = std::ranges::find(all, Qt::ToolTip, &QWidget::windowType);
        QVERIFY(tip != all.end() && (*tip)->isVisible());
        QVERIFY((*tip)->windowHandle()->flags().testFlag(Qt::WindowTransparentForInput)); // takes no clicks
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
        for (const QString typed :
             {"e", "\u0301", "x", "\u030C", "q", "\u0301s"}) // an accent goes with its letter
            enter(box, way, typed);
        QCOMPARE(box.text() + QString::number(box.cursorPosition()), "[éxqs]5");
        box.setText("\\");
        enter(box, way, "\u0301");
        QCOMPARE(box.text(), "\\");
        if (way == "menu")
            return; // which has no "Paste" in a box that is only read
        box.setReadOnly(true);
        enter(box, way, "c");
        QCOMPARE(box.text(), "\\");
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
        compose({}, "😀", 2);
        compose({}, "d");
        box.selectAll();
        compose({}, "😀");
        QCOMPARE(box.text(), "abcd");
        box.selectAll();
        compose("d", {});
        compose("e", "d");
        compose({}, "😀");
        QCOMPARE(box.text(), "d");
    }

    void textBox_undoesAPastingByItself_orLeavesUndoToTheWindow()
    {
        TextBox box(nullptr);
        enter(box, "paste", "\"12");
        QTest::keyClicks(&box, "3\"");
        enter(box, "Ctrl+Shift and a key", "\u200C"); // as Windows sends those of some languages
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

    void textBox_takesALongTextAtOnce()
    {
        std::u32string different(100'000, U' ');
        std::iota(different.begin(), different.end(), U'\u0100');
        TextBox box(nullptr);
        const std::clock_t start = std::clock();
        enter(box, "paste", QString::fromStdU32String(different));
        QVERIFY((std::clock() - start) * 1000 / CLOCKS_PER_SEC < 300);
        box.clear();
        enter(box, "paste", QString(100'000, u'x'));
        QCOMPARE(box.text(), QString(100'000, u'x'));
    }
};

QTEST_MAIN(TextBoxTest)
#include "text_box_test.moc"

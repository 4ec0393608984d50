#include "controls/button.h"
#include "controls/scroll_bar.h"
#include "support/windows.h"

#include <QApplication>
#include <QWheelEvent>

class ControlsTest : public WindowTest
{
    Q_OBJECT
private slots:
    void button_isFlatAndShowsItsState()
    {
        QWidget window;
        Button button(&window);
        Button other(&window);
        window.resize(300, 200);
        button.setGeometry(10, 10, 100, 40);
        other.setFocus();
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        const auto pictured = [&] { return button.grab().toImage(); };
        const QImage atRest = pictured();
        QImage flat(98, 38, atRest.format());
        flat.fill(QColor(160, 203, 254));
        QCOMPARE(atRest.copy(1, 1, 98, 38), flat);

        QTest::mouseMove(window.windowHandle(), {50, 30});
        const QImage hovered = pictured();
        QTest::mousePress(&button, Qt::LeftButton);
        const QImage pressed = pictured();
        QTest::mouseRelease(&button, Qt::LeftButton);
        QTest::mouseMove(window.windowHandle(), {250, 150});
        const QImage focused = pictured();
        button.setEnabled(false);
        const QImage disabled = pictured();
        const QList<QImage> all = {atRest, hovered, pressed, focused, disabled};
        for (qsizetype i = 0; i < all.size(); i += 1)
            QCOMPARE(all.indexOf(all[i]), i);
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
        QTest::mouseClick(&bar, Qt::LeftButton, {}, {15, 500});
        QCOMPARE(bar.value(), 53);
        QTest::keyClick(&bar, Qt::Key_Up);
        QCOMPARE(bar.value(), 52);
    }

    void scrollBar_waitsUntilTheThumbIsLetGo()
    {
        ScrollBar bar(nullptr);
        bar.setRange(1, 100);
        bar.resize(30, 600);
        bar.show();
        QTest::mousePress(&bar, Qt::LeftButton, {}, {15, 25});
        QTest::mouseMove(&bar, {15, 300});
        QCOMPARE(bar.value(), 1);
        QVERIFY(bar.sliderPosition() > 40);
        QTest::mouseRelease(&bar, Qt::LeftButton, {}, {15, 300});
        QCOMPARE(bar.value(), bar.sliderPosition());
        QVERIFY(bar.value() > 40);
    }
};

QTEST_MAIN(ControlsTest)
#include "controls_test.moc"

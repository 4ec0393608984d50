#include "controls/button.h"
#include "controls/scroll_bar.h"
#include "pages/page_image.h"
#include "support/windows.h"

#include <QApplication>
#include <QBuffer>

#include <QPainter>
#include <QWheelEvent>

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

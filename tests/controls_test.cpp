#include "controls/scroll_bar.h"
#include "controls/text_box.h"
#include "pages/page_image.h"
#include "support/windows.h"

#include <QApplication>
#include <QBuffer>
#include <QClipboard>
#include <QPainter>
#include <QToolTip>
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
    void textBox_admitsWhatFilesCarry()
    {
        const std::tuple<QString, QString, QString> rows[] = {
            // typed, taken, told to be left out
            {" \"Für Elise, €\"", "e 'Für Elise, €'", {}},
            {"a\\b\r\nc\nd\te", "ea/b c d e", {}},
            {"\u0300, Dvořák, ő Łódź", "è, Dvorák, o Lódz", {}},
            {"a→b😀→", "eab", "→ 😀"},
            {"<b>☃</b>", "e<b></b>", "☃"},
            {QString(100'000, u'x'), 'e' + QString(100'000, u'x'), {}},
        };
        for (const auto &[typed, text, leftOut] : rows) {
            TextBox box(nullptr);
            box.show();
            box.setText("[e\\]");
            box.setCursorPosition(2);
            QGuiApplication::clipboard()->setText(typed);
            QTest::keyClick(&box, Qt::Key_V, Qt::ControlModifier);
            QCOMPARE(box.text(), "[" + text + "\\]");
            QCOMPARE(box.cursorPosition(), 1 + text.size());
            QCOMPARE(QToolTip::isVisible(), !leftOut.isEmpty());
            QVERIFY(leftOut.isEmpty() || QToolTip::text().endsWith(leftOut));
            QToolTip::hideText();
        }
    }

    void textBox_survivesRefusedKeysAndUndo()
    {
        TextBox box(nullptr);
        box.setText("a\\b");
        box.selectAll();
        QKeyEvent arrow(QEvent::KeyPress, Qt::Key_unknown, {}, QString(QChar(0x2192)));
        QApplication::sendEvent(&box, &arrow);
        QCOMPARE(box.selectedText(), "a\\b"); // a refused key deletes nothing
        QTest::keyClicks(&box, "\"");
        QCOMPARE(box.text(), "'");
        QTest::keyClick(&box, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(box.text(), "a\\b"); // undone, and still as the program put it in
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

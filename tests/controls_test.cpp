#include "controls/form.h"
#include "controls/page_image.h"
#include "controls/scroll_bar.h"
#include "controls/text_box.h"
#include "support/windows.h"

#include <QApplication>
#include <QBuffer>
#include <QClipboard>
#include <QImage>
#include <QPushButton>
#include <QSignalSpy>
#include <QStyleOptionSlider>
#include <QToolTip>
#include <QWheelEvent>

class CountingForm : public Form
{
public:
    CountingForm()
        : Form({"Counting", "Counting", 3000, 1500, QPoint(900'000, 900'000)})
    {
    }
    int loads = 0;
    QPushButton *Command1 = nullptr;

protected:
    void build(ControlMaker make) override
    {
        Command1 = make.button("Command1", "R&B", {120, 120, 1500, 495});
        setTabOrder({Command1});
        on(Command1, &QPushButton::clicked, [this] { unload(); });
    }
    void load() override { loads += 1; }
};

// A picture of a red left and a blue right half.
static QByteArray halves(QSize size, const char *format)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::red);
    for (int y = 0; y < size.height(); y += 1) {
        for (int x = size.width() / 2; x < size.width(); x += 1)
            image.setPixelColor(x, y, Qt::blue);
    }
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, format, 95);
    return bytes;
}

// The same JPEG with an EXIF block that says how it is turned.
static QByteArray turned(QByteArray jpeg, char orientation)
{
    const QByteArray exif = QByteArray("\xFF\xE1\x00\x22"
                                       "Exif\0\0MM\0*\0\0\0\x08\0\x01\x01\x12\0\x03\0\0\0\x01\0",
                                       29)
        + orientation + QByteArray(6, '\0');
    return jpeg.insert(2, exif);
}

// The same JPEG claiming another size in its frame header.
static QByteArray claiming(QByteArray jpeg, quint16 width, quint16 height)
{
    const qsizetype frame = jpeg.indexOf("\xFF\xC0");
    for (const auto &[offset, value] : {std::pair{5, height}, std::pair{7, width}}) {
        jpeg[frame + offset] = static_cast<char>(value >> 8);
        jpeg[frame + offset + 1] = static_cast<char>(value & 0xFF);
    }
    return jpeg;
}

class ControlsTest : public QObject
{
    Q_OBJECT
private slots:
    void textBox_admitsWhatFilesCarry_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("leftOut");
        QTest::newRow("plain") << "Für Elise, €"
                               << "Für Elise, €"
                               << "";
        QTest::newRow("quotes") << "say \"hi\""
                                << "say 'hi'"
                                << "";
        QTest::newRow("backslash") << "a\\b"
                                   << "a/b"
                                   << "";
        QTest::newRow("breaks") << "a\r\nb\nc\td"
                                << "a b c d"
                                << "";
        QTest::newRow("decomposed") << QString("e\u0300") << "è"
                                    << "";
        QTest::newRow("lacking letters") << "Dvořák, ő Łódź"
                                         << "Dvorák, o Lódz"
                                         << "";
        QTest::newRow("others") << "a→b😀→"
                                << "ab"
                                << "→ 😀";
        QTest::newRow("markup") << "<b>☃</b>"
                                << "<b></b>"
                                << "☃";
        QTest::newRow("long") << QString(100'000, u'x') << QString(100'000, u'x') << "";
    }

    void textBox_admitsWhatFilesCarry()
    {
        QFETCH(QString, typed);
        TextBox box(nullptr);
        box.show();
        box.setText("[\\]");
        box.setCursorPosition(1);
        QGuiApplication::clipboard()->setText(typed);
        QTest::keyClick(&box, Qt::Key_V, Qt::ControlModifier);
        QFETCH(QString, text);
        QCOMPARE(box.text(), "[" + text + "\\]");
        QCOMPARE(box.cursorPosition(), 1 + text.size());
        QFETCH(QString, leftOut);
        QCOMPARE(QToolTip::isVisible(), !leftOut.isEmpty());
        QVERIFY(leftOut.isEmpty() || QToolTip::text().endsWith(leftOut.toHtmlEscaped()));
        QToolTip::hideText();
    }

    void textBox_composesUndoesAndKeeps()
    {
        TextBox box(nullptr);
        box.show();
        QTest::keyClicks(&box, "caffe");
        QKeyEvent accent(QEvent::KeyPress, Qt::Key_unknown, {}, QString(QChar(0x0300)));
        QApplication::sendEvent(&box, &accent);
        QTest::keyClicks(&box, "\"");
        QCOMPARE(box.text(), "caffè'");
        box.setText("a\\b");
        box.selectAll();
        QKeyEvent arrow(QEvent::KeyPress, Qt::Key_unknown, {}, QString(QChar(0x2192)));
        QApplication::sendEvent(&box, &arrow);
        QCOMPARE(box.selectedText(), "a\\b"); // a refused key deletes nothing
        QGuiApplication::clipboard()->setText("\"");
        QTest::keyClick(&box, Qt::Key_V, Qt::ControlModifier);
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
        const auto turn = [&](int angle) {
            QWheelEvent event({5, 5}, {5, 5}, {}, {0, angle}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                              false);
            QApplication::sendEvent(&bar, &event);
            QVERIFY(event.isAccepted());
        };
        turn(-120);
        QCOMPARE(bar.value(), 51);
        turn(60);
        turn(60);
        QCOMPARE(bar.value(), 50);
        for (const int key : {Qt::Key_Down, Qt::Key_PageDown, Qt::Key_Up})
            QTest::keyClick(&bar, static_cast<Qt::Key>(key));
        QCOMPARE(bar.value(), 51);
        QTest::mouseClick(&bar, Qt::LeftButton, {}, {15, 580});
        QCOMPARE(bar.value(), 52);
    }

    void scrollBar_waitsForTheThumb()
    {
        ScrollBar bar(nullptr);
        bar.setRange(1, 100);
        bar.resize(30, 600);
        bar.show();
        QSignalSpy changed(&bar, &QScrollBar::valueChanged);
        QStyleOptionSlider option;
        option.initFrom(&bar);
        option.orientation = Qt::Vertical;
        option.minimum = option.sliderPosition = option.sliderValue = 1;
        option.maximum = 100;
        option.pageStep = option.singleStep = 1;
        option.subControls = QStyle::SC_All;
        const QPoint thumb =
            bar.style()
                ->subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider, &bar)
                .center();
        QTest::mousePress(&bar, Qt::LeftButton, {}, thumb);
        QTest::mouseMove(&bar, {15, 200});
        QTest::mouseMove(&bar, {15, 500});
        QCOMPARE(changed.count(), 0);
        QTest::mouseRelease(&bar, Qt::LeftButton, {}, {15, 500});
        QCOMPARE(changed.count(), 1);
        QVERIFY(bar.value() > 70);
    }

    void decodePage_showsWhatCanBeShown_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<bool>("shown");
        QTest::addColumn<QColor>("topRight");
        const QByteArray page = halves({2000, 3000}, "JPG");
        QByteArray garbled = page;
        for (qsizetype i = 200; i < garbled.size(); i += 7)
            garbled[i] = static_cast<char>(i * 31);
        QTest::newRow("page") << page << true << QColor(Qt::blue);
        QTest::newRow("small") << halves({20, 30}, "JPG") << true << QColor(Qt::blue);
        QTest::newRow("turned by 180") << turned(page, 3) << true << QColor(Qt::red);
        QTest::newRow("turned by 90") << turned(page, 6) << true << QColor(Qt::red);
        QTest::newRow("turned by 270") << turned(page, 8) << true << QColor(Qt::blue);
        QTest::newRow("really a PNG") << halves({200, 300}, "PNG") << true << QColor(Qt::blue);
        QTest::newRow("cut") << page.first(page.size() / 3) << true << QColor(Qt::blue);
        QTest::newRow("empty") << QByteArray() << false << QColor();
        QTest::newRow("cut in its head") << page.first(100) << false << QColor();
        QTest::newRow("no picture") << QByteArray("var archivio = [") << false << QColor();
        QTest::newRow("absurd") << claiming(page, 65500, 65500) << false << QColor();
        QTest::newRow("garbled") << garbled << false << QColor();
    }

    void decodePage_showsWhatCanBeShown()
    {
        QFETCH(QByteArray, file);
        TestFolder folder;
        put("1L.jpg", file);
        const QImage image = decodePage("1L.jpg", {329, 281});
        QTEST(!image.isNull(), "shown");
        if (image.isNull())
            return;
        QCOMPARE(image.size(), QSize(329, 281));
        QFETCH(QColor, topRight);
        const QColor seen = image.pixelColor(300, 20);
        QVERIFY2(qAbs(seen.red() - topRight.red()) < 40 && qAbs(seen.blue() - topRight.blue()) < 40,
                 qPrintable(seen.name()));
    }

    void form_comesAndGoes()
    {
        CountingForm form;
        form.show();
        QWidget *first = windowNamed("Counting");
        QVERIFY(first && QTest::qWaitForWindowExposed(first));
        QVERIFY(first->screen()->geometry().contains(first->geometry()));
        QCOMPARE(first->size(), QSize(200, 100));
        QCOMPARE(form.Command1->text(), "R&&B");
        form.show();
        form.hide();
        form.show();
        QCOMPARE(form.loads, 1);
        QCOMPARE(windowNamed("Counting"), first);
        click("Counting", "Command1");
        QVERIFY(!form.isLoaded() && !windowNamed("Counting"));
        form.show();
        QCOMPARE(form.loads, 2);
        windowNamed("Counting")->close();
        QVERIFY(!form.isLoaded());
    }
};

WINDOW_TEST_MAIN(ControlsTest)
#include "controls_test.moc"

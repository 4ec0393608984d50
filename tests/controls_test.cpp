#include "controls/button.h"
#include "controls/file_drop.h"
#include "controls/image_frame.h"
#include "controls/scroll_bar.h"
#include "controls/text_box.h"
#include "support/table.h"
#include "support/windows.h"

#include <QMimeData>
#include <QSignalSpy>
#include <QUrl>
#include <QWheelEvent>

// In eighths of a degree; 120 are a notch, away from the person where positive.
static void turnWheel(QWidget &widget, int angle)
{
    QWheelEvent event({5, 5}, {5, 5}, {}, {0, angle}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&widget, &event);
}

using Dropped = std::pair<QString, QStringList>; // addresses, none for a text, and the files among them

class ControlsTest : public WindowTest
{
    Q_OBJECT
private slots:
    void button_isFlatAndShowsItsState()
    {
        QWidget window;
        Button button(&window);
        Button other(&window);
        button.setGeometry(10, 10, 100, 40);
        other.setFocus();
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        const auto face = [&] { return button.grab().toImage().copy(3, 3, 94, 34); };
        const QImage atRest = face();
        QImage flat(atRest.size(), atRest.format());
        flat.fill(QColor(160, 203, 254));
        QCOMPARE(atRest, flat);
        const QImage whole = button.grab().toImage();
        button.setFocus();
        QVERIFY(button.grab().toImage() != whole);
        QTest::mouseMove(window.windowHandle(), {50, 30});
        const QImage hovered = face();
        QTest::mousePress(&button, Qt::LeftButton);
        const QImage pressed = face();
        button.setEnabled(false);
        const QList<QImage> all = {atRest, hovered, pressed, face()};
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
        turnWheel(bar, -120);
        QTest::mouseClick(&bar, Qt::LeftButton, {}, {15, 580});
        QCOMPARE(bar.value(), 52);
        QTest::mouseClick(&bar, Qt::LeftButton, {}, {15, 500});
        QCOMPARE(bar.value(), 53);
        QTest::keyClick(&bar, Qt::Key_Up);
        QCOMPARE(bar.value(), 52);
        for (int i = 0; i < 4; i += 1)
            turnWheel(bar, 60);
        QCOMPARE(bar.value(), 50);
    }

    void scrollBar_waitsUntilTheThumbIsLetGo()
    {
        ScrollBar bar(nullptr);
        bar.setRange(1, 100);
        bar.resize(30, 600);
        bar.show();
        QTest::mousePress(&bar, Qt::LeftButton, {}, {15, 25});
        QTest::mouseMove(&bar, {15, 300});
        turnWheel(bar, -120);
        QCOMPARE(bar.value(), 1);
        QVERIFY(bar.sliderPosition() > 40);
        QTest::mouseRelease(&bar, Qt::LeftButton, {}, {15, 300});
        QCOMPARE(bar.value(), bar.sliderPosition());
        QVERIFY(bar.value() > 40);
    }

    void imageFrame_isOpenedByDoubleClickOrEnter()
    {
        ImageFrame frame(nullptr);
        const QSignalSpy opened(&frame, &ImageFrame::opened);
        QTest::mouseClick(&frame, Qt::LeftButton);
        QTest::mouseDClick(&frame, Qt::RightButton);
        QTest::keyClick(&frame, Qt::Key_Space);
        QCOMPARE(opened.size(), 0);
        QTest::mouseDClick(&frame, Qt::LeftButton);
        QTest::keyClick(&frame, Qt::Key_Enter);
        QTest::keyClick(&frame, Qt::Key_Return);
        QCOMPARE(opened.size(), 3);
    }

    void fileDrop_takesFilesAndLeavesThemWhereTheyAre_data()
    {
        tableOf<Dropped>({{"files", {"file:///tmp/a%20b.jpg file:///tmp/%23", {"/tmp/a b.jpg", "/tmp/#"}}},
                          {"a page of the web among them", {"https://a.b/c.jpg file:///tmp", {"/tmp"}}},
                          {"no files", {"https://a.b/c.jpg", {}}},
                          {"text", {"", {}}}});
    }
    void fileDrop_takesFilesAndLeavesThemWhereTheyAre()
    {
        const auto [uris, paths] = tableRow<Dropped>();
        QWidget window;
        TextBox box(&window); // which takes none
        const FileDrop fileDrop(&window);
        QSignalSpy dropped(&fileDrop, &FileDrop::dropped);
        QMimeData data;
        data.setText("text");
        if (!uris.isEmpty())
            data.setUrls(QUrl::fromStringList(uris.split(' ')));
        const Qt::DropAction made = drop(paths.isEmpty() ? &window : &box, data, {5, 5});
        QCOMPARE(made, paths.isEmpty() ? Qt::IgnoreAction : Qt::CopyAction);
        QCoreApplication::processEvents();
        QCOMPARE(dropped.size(), paths.isEmpty() ? 0 : 1);
        QCOMPARE(dropped.value(0).value(0).toStringList(), paths);
    }
};

QTEST_MAIN(ControlsTest)
#include "controls_test.moc"

#include "controls/button.h"
#include "controls/file_drop.h"
#include "controls/image_frame.h"
#include "controls/row_list.h"
#include "controls/scroll_bar.h"
#include "controls/text_box.h"
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
        QCOMPARE(rowAfter(Qt::Key_End), 797);
        list.replaceRows(797, 1, {});
        QCOMPARE(rowAfter(Qt::Key_Down), 796); // there is none below
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

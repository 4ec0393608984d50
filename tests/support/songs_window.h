#pragma once

#include "support/windows.h"

#include <QApplication>
#include <QHeaderView>
#include <QTableView>

// The window "Songs", as a person uses it.
namespace songs
{
inline const QString window = "Songs";

inline QTableView *table()
{
    return control<QTableView>(window, window);
}

// What has the focus; just after a box has closed nothing may, for a moment.
inline QWidget *focused()
{
    if (!QTest::qWaitFor([] { return QApplication::focusWidget() != nullptr; }))
        qFatal("nothing has the focus");
    return QApplication::focusWidget();
}
inline void key(Qt::Key key, Qt::KeyboardModifiers held = {})
{
    QTest::keyClick(focused(), key, held);
}
inline void keys(const QString &text)
{
    QTest::keyClicks(focused(), text);
}

// What stands in a column of all rows.
inline QString shown(int column)
{
    QStringList all;
    for (int row = 0; row < table()->model()->rowCount(); row += 1)
        all += table()->model()->index(row, column).data().toString();
    return all.join(' ');
}

inline void sortBy(int column)
{
    QTest::mouseClick(table()->horizontalHeader()->viewport(), Qt::LeftButton, {},
                      {table()->columnViewportPosition(column) + 20, 8});
}

inline void open()
{
    press("Form1", "Text2", Qt::Key_F, Qt::ControlModifier);
    waitUntilActive(window);
}

inline void clickCell(int row, int column, Qt::KeyboardModifiers held = {})
{
    ::clickCell(window, window, row, column, held);
}

inline void editCell(int row, int column, const QString &text)
{
    clickCell(row, column);
    key(Qt::Key_F2);
    keys(text);
    key(Qt::Key_Return);
    QCoreApplication::processEvents(); // the box is closed a moment later
}

// Of the menu for the chosen songs, by the menu key.
inline void chooseForChosen(const QStringList &entries)
{
    chooseByMenuKey(window, window, entries);
    waitUntilActive(window); // a dialog may have been in front
    table()->setFocus();
}
inline void chooseForAll(const QStringList &entries)
{
    table()->setFocus();
    key(Qt::Key_A, Qt::ControlModifier);
    chooseForChosen(entries);
}

// What is done in the dialog that opens next, before Enter closes it.
inline void inDialog(const std::function<void()> &steps)
{
    auto *timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, timer, [=] {
        QWidget *dialog = QApplication::activeModalWidget();
        if (!dialog || !dialog->isAncestorOf(QApplication::focusWidget()))
            return;
        timer->deleteLater();
        timer->stop();
        steps();
        QTest::keyClick(dialog, Qt::Key_Return);
    });
    timer->start(5);
}
} // namespace songs

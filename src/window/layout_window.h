#pragma once

#include "window/bring_forward.h"

#include <QPointer>
#include <QWidget>

class QPushButton;

// A window that can be made larger and smaller, with its controls in a layout. Escape and the close box
// close it, unless work is running; closed, it is deleted. What must outlive it is not a member of it.
class LayoutWindow : public QWidget
{
    Q_OBJECT
public:
    // The name is the objectName. It opens in this size, in logical pixels, or as much of it as the screen
    // has room for.
    LayoutWindow(const QString &name, const QString &title, QSize size);

    // While work is running the window stays.
    void setWorking(bool working) { isWorking_ = working; }

    void comeForward() { bringForward(this); }

protected:
    void closeEvent(QCloseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    bool isWorking_ = false;
};

// A button of such a window; Enter presses it where it has the focus. Its objectName is its text.
QPushButton *pushButton(const QString &text);

// A widget with a column of others at its right side, in these widths, to be made wider and narrower.
QWidget *besideColumn(QWidget *widget, const QList<QWidget *> &column, const QList<int> &widths);

// Shows the one window of its kind: the one that `window` points to, else the one that `make` gives.
template <typename Window, typename Make> Window *showTheOne(QPointer<Window> &window, Make make)
{
    if (!window)
        window = make();
    window->comeForward();
    return window;
}

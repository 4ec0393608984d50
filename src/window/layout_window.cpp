#include "window/layout_window.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QScreen>
#include <QStyle>

LayoutWindow::LayoutWindow(const QString &name, const QString &title, QSize size)
    : QWidget(nullptr, Qt::Window)
{
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(name);
    setWindowTitle(title);
    const int titleBar = style()->pixelMetric(QStyle::PM_TitleBarHeight);
    resize(size.boundedTo(screen()->availableSize() - QSize(0, titleBar)));
}

void LayoutWindow::closeEvent(QCloseEvent *event)
{
    event->setAccepted(!isWorking_);
}

void LayoutWindow::keyPressEvent(QKeyEvent *event)
{
    if (event->matches(QKeySequence::Cancel))
        close();
    else
        QWidget::keyPressEvent(event);
}

#include "window/layout_window.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QPushButton>
#include <QScreen>
#include <QSplitter>
#include <QStyle>
#include <QVBoxLayout>

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

QPushButton *pushButton(const QString &text)
{
    auto *button = new QPushButton(text);
    button->setObjectName(text);
    button->setAutoDefault(true);
    return button;
}

QWidget *besideColumn(QWidget *widget, const QList<QWidget *> &column, const QList<int> &widths)
{
    auto *both = new QSplitter;
    both->addWidget(widget);
    auto *side = new QWidget(both);
    auto *layout = new QVBoxLayout(side);
    layout->setContentsMargins(0, 0, 0, 0);
    for (QWidget *each : column)
        layout->addWidget(each);
    both->setStretchFactor(0, 1);
    both->setSizes(widths);
    both->setChildrenCollapsible(false);
    return both;
}

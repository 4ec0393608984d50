#include "controls/scroll_bar.h"

#include "look/look.h"

#include <QPainter>
#include <QWheelEvent>

ScrollBar::ScrollBar(QWidget *parent)
    : QScrollBar(Qt::Vertical, parent)
{
    setTracking(false);
    setSingleStep(1);
    setPageStep(1);
    setFocusPolicy(Qt::StrongFocus);
}

void ScrollBar::wheelEvent(QWheelEvent *event)
{
    wheelAngle_ += event->angleDelta().y();
    const int notches = wheelAngle_ / QWheelEvent::DefaultDeltasPerStep;
    wheelAngle_ -= notches * QWheelEvent::DefaultDeltasPerStep;
    if (!isSliderDown())
        step(-notches);
    event->accept();
}

void ScrollBar::paintEvent(QPaintEvent *event)
{
    QScrollBar::paintEvent(event);
    if (!hasFocus())
        return;
    QPainter painter(this);
    painter.setPen(QPen(lineColour, 2));
    painter.drawRect(rect().adjusted(1, 1, -1, -1));
}

#include "controls/openable.h"

#include "look/look.h"

#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

// Lets a screen reader know what Qt has no word for: that it is a picture.
static QAccessibleInterface *pictureInterface(const QString &, QObject *object)
{
    auto *picture = qobject_cast<Openable *>(object);
    return picture ? new QAccessibleWidget(picture, QAccessible::Graphic) : nullptr;
}

Openable::Openable(QWidget *parent)
    : QWidget(parent)
{
    static const bool installed = (QAccessible::installFactory(pictureInterface), true);
    Q_UNUSED(installed)
}

void Openable::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        emit opened();
}

void Openable::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        emit opened();
    else
        QWidget::keyPressEvent(event);
}

void Openable::paintFocus(QPainter &painter) const
{
    if (!hasFocus())
        return;
    painter.setPen(QPen(lineColour, 2));
    painter.drawRect(rect().adjusted(1, 1, -1, -1));
}

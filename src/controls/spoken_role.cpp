#include "controls/spoken_role.h"

#include <QAccessibleWidget>
#include <QWidget>

static QAccessibleInterface *interfaceOf(const QString &className, QObject *object)
{
    auto *widget = qobject_cast<QWidget *>(object);
    if (widget && className == QLatin1String("ImageFrame"))
        return new QAccessibleWidget(widget, QAccessible::Graphic);
    if (widget && className == QLatin1String("QWidget") && widget->isWindow())
        return new QAccessibleWidget(widget, QAccessible::Window);
    return nullptr;
}

void installSpokenRoles()
{
    QAccessible::installFactory(interfaceOf);
}

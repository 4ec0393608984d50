#include "controls/small_screen.h"

#include <QGuiApplication>
#include <QScreen>

static const char scaleVariable[] = "QT_SCALE_FACTOR";
static constexpr QSize frame(4, 40); // what a title bar and the borders take

bool fitSmallScreen()
{
    const QSizeF room = QGuiApplication::primaryScreen()->availableSize();
    const QSizeF needed = largestWindow + frame;
    const qreal fits = qMin(room.width() / needed.width(), room.height() / needed.height());
    if (fits >= 1)
        return false;
    bool isSet = false;
    const double scale = qEnvironmentVariable(scaleVariable).toDouble(&isSet);
    qputenv(scaleVariable, QByteArray::number(fits * (isSet ? scale : 1)));
    return true;
}

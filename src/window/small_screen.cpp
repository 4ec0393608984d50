#include "window/small_screen.h"

#include <QGuiApplication>
#include <QScreen>

#include <cmath>

static const char scaleVariable[] = "QT_SCALE_FACTOR";
static constexpr QSize frame(4, 40); // what a title bar and the borders take

bool fitSmallScreen()
{
    const QScreen *screen = QGuiApplication::primaryScreen();
    const qreal ratio = screen->devicePixelRatio();
    const QSizeF room = screen->availableSize();
    const QSizeF needed = largestWindow + frame;
    const qreal fits = qMin(room.width() / needed.width(), room.height() / needed.height());
    if (fits >= 1 || ratio <= 1) // Qt does not paint properly below 1
        return false;
    // In quarters: between them lines of one pixel can fall between the screen's.
    const qreal smaller = qMax(1.0, std::floor(4 * ratio * fits) / 4);
    bool isSet = false;
    const double scale = qEnvironmentVariable(scaleVariable).toDouble(&isSet);
    qputenv(scaleVariable, QByteArray::number(smaller / ratio * (isSet ? scale : 1)));
    return true;
}

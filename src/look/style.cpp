#include "look/style.h"

#include "look/look.h"

#include <QEvent>
#include <QPainter>
#include <QStyleFactory>
#include <QStyleOption>
#include <QWidget>
#include <QWindow>

static constexpr QColor hoverColour(190, 219, 255);
static constexpr QColor pressedColour(128, 184, 252);
static constexpr QColor disabledColour(228, 234, 241);
static constexpr QColor disabledOutline(190, 196, 203);

Style::Style()
    : QProxyStyle(QStyleFactory::create("Fusion"))
{
}

void Style::polish(QWidget *widget)
{
    QProxyStyle::polish(widget);
    if (widget->windowType() == Qt::ToolTip) {
        widget->setWindowFlag(Qt::WindowTransparentForInput);
        widget->installEventFilter(this);
    }
}

// Under X11 Qt forgets the flag when it shows the tip, so it is set once more as the tip is first painted.
bool Style::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Paint) {
        QWindow *tip = static_cast<QWidget *>(watched)->windowHandle();
        tip->setFlag(Qt::WindowTransparentForInput, false);
        tip->setFlag(Qt::WindowTransparentForInput);
        watched->removeEventFilter(this);
    }
    return false;
}

static QColor faceIn(QStyle::State state)
{
    if (!state.testFlag(QStyle::State_Enabled))
        return disabledColour;
    if (state & (QStyle::State_Sunken | QStyle::State_On))
        return pressedColour;
    return state.testFlag(QStyle::State_MouseOver) ? hoverColour : faceColour;
}

// The outline is one pixel wide; around the button that has the focus two, and a white one within.
static void drawButton(QPainter *painter, QRect rect, QStyle::State state)
{
    const bool hasFocus = state.testFlag(QStyle::State_HasFocus);
    const auto fill = [&](const QColor &colour, int width) {
        painter->fillRect(rect, colour);
        rect.adjust(width, width, -width, -width);
    };
    fill(state.testFlag(QStyle::State_Enabled) ? lineColour : disabledOutline, hasFocus ? 2 : 1);
    if (hasFocus)
        fill(Qt::white, 1);
    fill(faceIn(state), 0);
}

void Style::drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                          const QWidget *widget) const
{
    if (element == PE_PanelButtonCommand)
        drawButton(painter, option->rect, option->state);
    else
        QProxyStyle::drawPrimitive(element, option, painter, widget);
}

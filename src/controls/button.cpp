#include "controls/button.h"

#include <QStyleOptionButton>
#include <QStylePainter>

Button::Button(const QString &text, QWidget *parent)
    : QPushButton(text, parent)
{
    setAutoDefault(true); // Enter presses the button that has the focus, as the space bar does
}

void Button::paintEvent(QPaintEvent *)
{
    QStyleOptionButton option;
    initStyleOption(&option);
    const int margin = style()->pixelMetric(QStyle::PM_ButtonMargin, &option, this);
    if (fontMetrics().size(Qt::TextShowMnemonic, option.text).width() > width() - margin)
        option.text.replace(' ', '\n');
    QStylePainter(this).drawControl(QStyle::CE_PushButton, option);
}

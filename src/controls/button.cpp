#include "controls/button.h"

#include "look/plain_text.h"

#include <QStyleOptionButton>
#include <QStylePainter>

Button::Button(QWidget *parent)
    : QPushButton(parent)
{
    setAutoDefault(true); // Enter presses the button that has the focus, as the space bar does
}

void Button::showName(const QString &name)
{
    setText(shownAmpersands(name));
    setToolTip(fittingText() == text() ? QString() : plainToolTip(name));
}

QString Button::fittingText() const
{
    const int margin = style()->pixelMetric(QStyle::PM_ButtonMargin, nullptr, this);
    const QSize room = size() - QSize(margin, 0);
    const auto fits = [&](const QString &lines) {
        const QSize needed = fontMetrics().size(Qt::TextShowMnemonic, lines);
        return needed.width() <= room.width() && needed.height() <= room.height();
    };
    const QString below = text().replace(' ', '\n');
    if (fits(text()) || !fits(below))
        return fontMetrics().elidedText(text(), Qt::ElideRight, room.width(), Qt::TextShowMnemonic);
    return below;
}

void Button::paintEvent(QPaintEvent *)
{
    QStyleOptionButton option;
    initStyleOption(&option);
    option.text = fittingText();
    QStylePainter(this).drawControl(QStyle::CE_PushButton, option);
}

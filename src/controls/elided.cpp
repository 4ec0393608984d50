#include "controls/elided.h"

#include "controls/control_maker.h"

#include <QPainter>
#include <QStyleOptionButton>
#include <QStylePainter>

PathLabel::PathLabel(QWidget *parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
}

void PathLabel::showPath(const QString &path)
{
    setText(path);
    setToolTip(plainToolTip(path));
}

void PathLabel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.drawText(rect(), Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine,
                     fontMetrics().elidedText(text(), Qt::ElideLeft, width()));
}

NameButton::NameButton(QWidget *parent)
    : QPushButton(parent)
{
    setAutoDefault(true);
}

void NameButton::showName(const QString &name)
{
    setText(shownAmpersands(name));
    setToolTip(fittingText() == text() ? QString() : plainToolTip(name));
}

QString NameButton::fittingText() const
{
    const int room = width() - style()->pixelMetric(QStyle::PM_ButtonMargin, nullptr, this);
    return fontMetrics().elidedText(text(), Qt::ElideRight, room, Qt::TextShowMnemonic);
}

void NameButton::paintEvent(QPaintEvent *)
{
    QStyleOptionButton option;
    initStyleOption(&option);
    option.text = fittingText();
    QStylePainter(this).drawControl(QStyle::CE_PushButton, option);
}

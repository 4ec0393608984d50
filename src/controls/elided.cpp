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
    setToolTip(plainToolTip(name));
}

void NameButton::paintEvent(QPaintEvent *)
{
    QStyleOptionButton option;
    initStyleOption(&option);
    const int margin = style()->pixelMetric(QStyle::PM_ButtonMargin, &option, this);
    option.text = fontMetrics().elidedText(text(), Qt::ElideRight, width() - margin, Qt::TextShowMnemonic);
    QStylePainter(this).drawControl(QStyle::CE_PushButton, option);
}

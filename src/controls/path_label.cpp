#include "controls/path_label.h"

#include "look/plain_text.h"

#include <QPainter>

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

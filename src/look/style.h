#pragma once

#include <QProxyStyle>

// Qt's style Fusion with two things of its own: buttons are flat, of exactly the face colour at rest, and a
// tool-tip lets clicks through to what lies below it.
class Style : public QProxyStyle
{
    Q_OBJECT
public:
    Style();

    using QProxyStyle::polish;
    void polish(QWidget *widget) override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override;
    bool eventFilter(QObject *watched, QEvent *event) override;
};

#pragma once

#include <QWidget>

// A picture of a file that a person can open by a double click, or by Enter while it has the focus.
class Openable : public QWidget
{
    Q_OBJECT
public:
    explicit Openable(QWidget *parent);

signals:
    void opened();

protected:
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    // Draws the outline that shows the focus, as the last thing.
    void paintFocus(QPainter &painter) const;
};

#pragma once

#include <QScrollBar>

// A vertical scroll bar whose value is the number of a record: it moves by 1 for each key, arrow, page
// and notch of the wheel, and only when the thumb is let go, not while it is dragged.
class ScrollBar : public QScrollBar
{
    Q_OBJECT
public:
    explicit ScrollBar(QWidget *parent);

    // Moves by so many records, as far as the bar reaches.
    void step(int records) { setValue(value() + records); }

protected:
    void wheelEvent(QWheelEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    int wheelAngle_ = 0; // what smaller movements of a wheel have added up to, in eighths of a degree
};

#pragma once

#include <QPushButton>

// A button whose words stand below each other where they are too wide beside each other; text() stays one
// line.
class Button : public QPushButton
{
    Q_OBJECT
public:
    explicit Button(const QString &text, QWidget *parent);

protected:
    void paintEvent(QPaintEvent *event) override;
};

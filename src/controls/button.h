#pragma once

#include <QPushButton>

// A button whose text may be wider than it is: its words then stand below each other where there is room,
// else the end of the text is left out of the picture. text() keeps it whole.
class Button : public QPushButton
{
    Q_OBJECT
public:
    explicit Button(QWidget *parent);

    // Shows just these characters, as a name from a file needs it; a tool-tip has what does not fit.
    void showName(const QString &name);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString fittingText() const;
};

#pragma once

#include <QLabel>
#include <QPushButton>

// Controls of one line whose text may be wider than they are: what does not fit is left out of the picture,
// and stands in text() and in the tool-tip.

// A line with the path of a file, whose beginning is left out first.
class PathLabel : public QLabel
{
    Q_OBJECT
public:
    explicit PathLabel(QWidget *parent);

    void showPath(const QString &path);

protected:
    void paintEvent(QPaintEvent *event) override;
};

// A button with a name that comes from a file.
class NameButton : public QPushButton
{
    Q_OBJECT
public:
    explicit NameButton(QWidget *parent);

    void showName(const QString &name);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString fittingText() const;
};

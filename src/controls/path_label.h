#pragma once

#include <QLabel>

// A line with the path of a file. Where it is too long, its beginning is left out of the picture; text() and
// the tool-tip keep it whole.
class PathLabel : public QLabel
{
    Q_OBJECT
public:
    explicit PathLabel(QWidget *parent);

    void showPath(const QString &path);

protected:
    void paintEvent(QPaintEvent *event) override;
};

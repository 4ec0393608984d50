#pragma once

#include <QObject>
#include <QStringList>

class QWidget;

// Lets files and folders be dropped on a widget, and on what stands in it unless that takes them itself.
// The files stay where they are.
class FileDrop : public QObject
{
    Q_OBJECT
public:
    // Lives as long as the target.
    explicit FileDrop(QWidget *target);

signals:
    // The paths of what was dropped, at least one. It comes when the program it was dragged from is free
    // again.
    void dropped(const QStringList &paths);

protected:
    bool eventFilter(QObject *target, QEvent *event) override;
};

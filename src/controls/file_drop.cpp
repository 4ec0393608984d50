#include "controls/file_drop.h"

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

FileDrop::FileDrop(QWidget *target)
    : QObject(target)
{
    target->setAcceptDrops(true);
    target->installEventFilter(this);
}

static QStringList localPaths(const QMimeData *data)
{
    QStringList paths;
    for (const QUrl &url : data->urls()) {
        if (url.isLocalFile())
            paths += url.toLocalFile();
    }
    return paths;
}

bool FileDrop::eventFilter(QObject *, QEvent *event)
{
    const bool isDrop = event->type() == QEvent::Drop;
    if (!isDrop && event->type() != QEvent::DragEnter && event->type() != QEvent::DragMove)
        return false;
    auto *drag = static_cast<QDropEvent *>(event);
    const bool isBlocked = QApplication::activeModalWidget() != nullptr;
    const QStringList paths = isBlocked ? QStringList() : localPaths(drag->mimeData());
    drag->setDropAction(Qt::CopyAction); // after a move the other program would delete them
    drag->setAccepted(!paths.isEmpty());
    if (isDrop && !paths.isEmpty())
        QMetaObject::invokeMethod(this, "dropped", Qt::QueuedConnection, Q_ARG(QStringList, paths));
    return true;
}

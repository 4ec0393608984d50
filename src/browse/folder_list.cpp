#include "browse/folder_list.h"

#include "files/platform.h"
#include "look/plain_text.h"
#include "text/alphabetical.h"

#include <QDir>
#include <QFileInfo>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QStyle>
#include <QToolTip>

static constexpr int pathRole = Qt::UserRole;

FolderList::FolderList(QWidget *parent)
    : QTreeWidget(parent)
{
    setFrameStyle(QFrame::Box | QFrame::Plain);
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setTextElideMode(Qt::ElideMiddle);
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setExpandsOnDoubleClick(false);
    connect(this, &QTreeWidget::itemDoubleClicked, this, &FolderList::openRow);
    if (!setPath(QDir::currentPath()))
        setPath(QDir::rootPath());
}

bool FolderList::setPath(const QString &folder)
{
    const QString path = QDir::cleanPath(QDir(folder).absolutePath());
    if (const QString reason = obstacleTo(path); !reason.isEmpty()) {
        setToolTip(plainToolTip(
            QStringLiteral("%1 cannot be read: %2").arg(QDir::toNativeSeparators(path), reason)));
        showReason();
        return false;
    }
    path_ = path;
    setToolTip({});
    showWay();
    emit folderChanged(this->path());
    return true;
}

QString FolderList::path() const
{
    return QDir::toNativeSeparators(path_);
}

static QTreeWidgetItem *rowFor(const QString &folder, const QIcon &icon)
{
    const QString name = QFileInfo(folder).fileName();
    auto *row = new QTreeWidgetItem({name.isEmpty() ? QDir::toNativeSeparators(folder) : name});
    row->setIcon(0, icon);
    row->setData(0, pathRole, folder);
    return row;
}

// The folders from the root down to this one.
static QStringList wayTo(QString folder)
{
    QStringList way(folder);
    for (QString above = QFileInfo(folder).path(); above != folder; above = QFileInfo(folder).path()) {
        folder = above;
        way.prepend(folder);
    }
    return way;
}

// A row far down from the root still has half of the list for its name.
void FolderList::indentRows()
{
    const int usual = style()->pixelMetric(QStyle::PM_SmallIconSize) / 2;
    const auto levels = static_cast<int>(path_.count('/')) + 1;
    setIndentation(qMin(usual, viewport()->width() / 2 / levels));
}

void FolderList::showWay()
{
    clear();
    indentRows();
    const QIcon openIcon = style()->standardIcon(QStyle::SP_DirOpenIcon);
    QTreeWidgetItem *open = invisibleRootItem();
    for (const QString &folder : wayTo(path_)) {
        QTreeWidgetItem *row = rowFor(folder, openIcon);
        open->addChild(row);
        open = row;
    }
    const QIcon icon = style()->standardIcon(QStyle::SP_DirIcon);
    QList<QTreeWidgetItem *> below;
    const auto folders = QDir::Dirs | QDir::NoDotAndDotDot;
    const QString above =
        path_.endsWith('/') ? path_ : path_ + '/'; // QDir takes ":x" for no name in a folder
    for (const QString &name : alphabetical(QDir(path_).entryList(folders, QDir::NoSort)))
        below += rowFor(above + name, icon);
    open->addChildren(below);
    expandAll();
    setCurrentItem(open);
    scrollToItem(open, PositionAtCenter);
}

// The folders may have changed while the list was away; where the open one is gone, the one above opens.
void FolderList::readAgain()
{
    QString folder = path_;
    while (!obstacleTo(folder).isEmpty() && folder != QDir::rootPath())
        folder = QFileInfo(folder).path();
    if (folder == path_)
        showWay();
    else
        setPath(folder);
}

void FolderList::showEvent(QShowEvent *event)
{
    if (wasHidden_ && !event->spontaneous())
        readAgain();
    QTreeWidget::showEvent(event);
}

void FolderList::hideEvent(QHideEvent *event)
{
    wasHidden_ |= !event->spontaneous();
    QTreeWidget::hideEvent(event);
}

void FolderList::resizeEvent(QResizeEvent *event)
{
    QTreeWidget::resizeEvent(event);
    indentRows();
}

void FolderList::openRow(const QTreeWidgetItem *row)
{
    setPath(row->data(0, pathRole).toString());
}

void FolderList::keyPressEvent(QKeyEvent *event)
{
    const bool enters = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enters && currentItem())
        openRow(currentItem());
    else
        QTreeWidget::keyPressEvent(event);
}

// A row's tool-tip is its whole path, unless there is something to tell.
bool FolderList::viewportEvent(QEvent *event)
{
    if (event->type() != QEvent::ToolTip || !toolTip().isEmpty())
        return QTreeWidget::viewportEvent(event);
    const auto *help = static_cast<QHelpEvent *>(event);
    const QTreeWidgetItem *row = itemAt(help->pos());
    const QString path = row ? row->data(0, pathRole).toString() : QString();
    QToolTip::showText(help->globalPos(), plainToolTip(QDir::toNativeSeparators(path)), this);
    return true;
}

void FolderList::showReason()
{
    if (toolTip().isEmpty())
        return;
    const QRect row = currentItem() ? visualItemRect(currentItem()) : QRect();
    QToolTip::showText(viewport()->mapToGlobal(row.bottomLeft()), toolTip(), this);
}

void FolderList::mousePressEvent(QMouseEvent *event)
{
    setToolTip({});
    QTreeWidget::mousePressEvent(event);
}

// Letting go of the button that made the double click has hidden the tool-tip again.
void FolderList::mouseReleaseEvent(QMouseEvent *event)
{
    QTreeWidget::mouseReleaseEvent(event);
    showReason();
}

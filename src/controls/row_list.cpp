#include "controls/row_list.h"

#include "look/look.h"
#include "look/plain_text.h"

#include <QDrag>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QToolTip>

#include <algorithm>

namespace
{
// All rows have the height of a line of text, also those without any.
class RowDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &) const override
    {
        return {1, option.fontMetrics.height() + 2};
    }
};

// Rows on their way to another place. They mean nothing outside the program.
class DraggedRows : public QMimeData
{
public:
    DraggedRows(const RowList *list, const QList<int> &dragged)
        : from(list)
        , rows(dragged)
    {
        setData(QStringLiteral("application/x-qabstractitemmodeldatalist"), {}); // what the lists look for
    }

    const RowList *const from;
    const QList<int> rows;
};
} // namespace

RowList::RowList(QWidget *parent)
    : QListWidget(parent)
{
    setFrameStyle(QFrame::Box | QFrame::Plain);
    setItemDelegate(new RowDelegate(this));
    setUniformItemSizes(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setDragEnabled(true);
    setDefaultDropAction(Qt::CopyAction);
    setDropIndicatorShown(false);
    connect(this, &RowList::rowsCame, this, &RowList::rowsDropped, Qt::QueuedConnection);
}

void RowList::takeRows()
{
    setSelectionMode(ExtendedSelection);
    setDragDropMode(DragDrop);
    setDefaultDropAction(Qt::MoveAction);
}

QList<int> RowList::selectedRows() const
{
    QList<int> rows;
    for (const QModelIndex &index : selectionModel()->selectedRows())
        rows += index.row();
    std::sort(rows.begin(), rows.end());
    return rows;
}

QString RowList::selectedText() const
{
    const QList<int> rows = selectedRows();
    return rows.isEmpty() ? QString() : item(rows.first())->text();
}

void RowList::selectRows(const QList<int> &rows)
{
    QItemSelection selection;
    for (const int row : rows)
        selection.select(model()->index(row, 0), model()->index(row, 0));
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    if (rows.isEmpty())
        return;
    selectionModel()->setCurrentIndex(model()->index(rows.first(), 0), QItemSelectionModel::NoUpdate);
    scrollToItem(item(rows.last()));
    scrollToItem(item(rows.first()));
}

void RowList::replaceRows(int first, int count, const QStringList &texts)
{
    insertItems(first, texts); // before the others go, so that the list need not scroll
    model()->removeRows(first + static_cast<int>(texts.size()), count);
    next_ = first;
}

int RowList::nextRow() const
{
    const QListWidgetItem *next = item(qMin(next_, count() - 1));
    const bool isInSight = next && visualItemRect(next).intersects(viewport()->rect());
    return isInSight ? next_ : qMax(indexAt({1, 1}).row(), 0);
}

void RowList::keyPressEvent(QKeyEvent *event)
{
    const bool isDown = event->key() == Qt::Key_Down;
    const bool isStep = (isDown || event->key() == Qt::Key_Up) && event->modifiers() != Qt::ControlModifier;
    if (isStep && count() > 0 && !selectionModel()->hasSelection())
        selectRows({qBound(0, nextRow() - (isDown ? 0 : 1), count() - 1)});
    else
        QListWidget::keyPressEvent(event);
}

void RowList::selectionChanged(const QItemSelection &selected, const QItemSelection &deselected)
{
    QListWidget::selectionChanged(selected, deselected);
    if (!deselected.isEmpty() && !selectionModel()->hasSelection())
        next_ = deselected.first().top();
}

QMimeData *RowList::mimeData(const QList<QListWidgetItem *> &) const
{
    return new DraggedRows(this, selectedRows());
}

// The rows as they look here, some of them where there are many.
QPixmap RowList::picture(const QList<int> &rows) const
{
    static constexpr int widest = 240;
    static constexpr qsizetype most = 5;
    const QRect row(0, 0, qMin(widest, viewport()->width()), sizeHintForRow(0));
    const QSize size(row.width(), row.height() * static_cast<int>(qMin(most, rows.size())));
    QPixmap picture(size * devicePixelRatioF());
    picture.setDevicePixelRatio(devicePixelRatioF());
    picture.fill(lineColour);
    QPainter painter(&picture);
    painter.setFont(font());
    painter.setPen(Qt::white);
    for (QRect place = row.adjusted(3, 0, -3, 0); const int each : rows) {
        const QString text = fontMetrics().elidedText(item(each)->text(), Qt::ElideRight, place.width());
        painter.drawText(place, Qt::AlignVCenter, text);
        place.translate(0, row.height());
    }
    return picture;
}

// Beside the pointer, so that the place where they would drop stays in sight.
void RowList::startDrag(Qt::DropActions actions)
{
    auto *drag = new QDrag(this);
    drag->setMimeData(mimeData({}));
    drag->setPixmap(picture(selectedRows()));
    drag->setHotSpot({-16, -16});
    drag->exec(actions, defaultDropAction());
}

int RowList::placeAt(QPoint position) const
{
    const QModelIndex index = indexAt(position);
    if (!index.isValid())
        return count();
    return position.y() < visualRect(index).center().y() ? index.row() : index.row() + 1;
}

void RowList::showPlace(int place)
{
    place_ = place;
    viewport()->update();
}

void RowList::dragMoveEvent(QDragMoveEvent *event)
{
    QListWidget::dragMoveEvent(event);
    if (!dynamic_cast<const DraggedRows *>(event->mimeData()))
        event->ignore();
    showPlace(event->isAccepted() ? placeAt(event->position().toPoint()) : -1);
}

void RowList::dragLeaveEvent(QDragLeaveEvent *event)
{
    QListWidget::dragLeaveEvent(event);
    showPlace(-1);
}

void RowList::dropEvent(QDropEvent *event)
{
    stopAutoScroll();
    setState(NoState);
    showPlace(-1);
    const auto *dragged = dynamic_cast<const DraggedRows *>(event->mimeData());
    if (!dragged)
        return;
    event->acceptProposedAction();
    emit rowsCame(dragged->from, dragged->rows, placeAt(event->position().toPoint()), {});
}

void RowList::paintEvent(QPaintEvent *event)
{
    QListWidget::paintEvent(event);
    if (place_ < 0)
        return;
    const int y = place_ > 0 ? visualItemRect(item(place_ - 1)).bottom() : 0;
    QPainter painter(viewport());
    painter.fillRect(0, y - 1, viewport()->width(), 4, Qt::white); // so that it is seen beside a selected row
    painter.fillRect(0, y, viewport()->width(), 2, lineColour);
}

bool RowList::viewportEvent(QEvent *event)
{
    if (event->type() != QEvent::ToolTip)
        return QListWidget::viewportEvent(event);
    const auto *help = static_cast<const QHelpEvent *>(event);
    const QListWidgetItem *row = itemAt(help->pos());
    const bool isCut = row && fontMetrics().horizontalAdvance(row->text()) + 6 > viewport()->width();
    QToolTip::showText(help->globalPos(), isCut ? plainToolTip(row->text()) : QString(), this);
    return true;
}

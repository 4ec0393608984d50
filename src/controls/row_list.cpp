#include "controls/row_list.h"

#include <QHelpEvent>
#include <QStyledItemDelegate>
#include <QTextDocument>
#include <QToolTip>

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
} // namespace

RowList::RowList(QWidget *parent)
    : QListWidget(parent)
{
    setItemDelegate(new RowDelegate(this));
    setUniformItemSizes(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

int RowList::selectedRow() const
{
    const QModelIndexList selected = selectionModel()->selectedRows();
    return selected.isEmpty() ? -1 : selected.constFirst().row();
}

QString RowList::selectedText() const
{
    const QListWidgetItem *selected = item(selectedRow());
    return selected ? selected->text() : QString();
}

void RowList::selectRow(int row)
{
    clearSelection();
    if (row < 0)
        return;
    setCurrentRow(row, QItemSelectionModel::ClearAndSelect);
    scrollToItem(item(row));
}

bool RowList::viewportEvent(QEvent *event)
{
    if (event->type() != QEvent::ToolTip)
        return QListWidget::viewportEvent(event);
    const auto *help = static_cast<const QHelpEvent *>(event);
    const QListWidgetItem *row = itemAt(help->pos());
    const bool isCut = row && fontMetrics().horizontalAdvance(row->text()) + 6 > viewport()->width();
    QToolTip::showText(help->globalPos(), isCut ? Qt::convertFromPlainText(row->text()) : QString(), this);
    return true;
}

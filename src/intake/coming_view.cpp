#include "intake/coming_view.h"

#include "intake/coming_delegate.h"
#include "intake/coming_table.h"
#include "look/look.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>

#include <algorithm>

static constexpr std::array<int, comingColumns> columnWidths = {24, 50, 50, 66, 150, 92, 62, 72, 120};
static constexpr int heightOfRows = 62;

ComingView::ComingView(ComingTable &table, PageImages &images, QWidget *parent)
    : QTableView(parent)
    , table_(table)
{
    setObjectName("Songs to bring in");
    setAccessibleName("Songs to bring in");
    setFont(verdana(9.75));
    setModel(&table);
    setItemDelegate(new ComingDelegate(*this, table, images));
    setSelectionBehavior(SelectRows);
    setEditTriggers(DoubleClicked | EditKeyPressed);
    setTabKeyNavigation(false);
    setCornerButtonEnabled(false);
    setAcceptDrops(false); // the window takes what is dropped
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(heightOfRows);
    horizontalHeader()->setFont(font());
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setStretchLastSection(true);
    for (int column = 0; column < comingColumns; column += 1)
        setColumnWidth(column, columnWidths[static_cast<size_t>(column)]);
    connect(model(), &QAbstractItemModel::modelAboutToBeReset, this, [this] {
        before_ = currentIndex();
        topRow_ = verticalScrollBar()->value();
    });
    connect(model(), &QAbstractItemModel::modelReset, this, &ComingView::takePlaceAgain);
    connect(model(), &QAbstractItemModel::dataChanged, this, &ComingView::currentSongChanged);
    connect(selectionModel(), &QItemSelectionModel::currentChanged, this, &ComingView::currentSongChanged);
}

void ComingView::takePlaceAgain()
{
    if (table_.rowCount() > 0) {
        const int row = qBound(0, before_.row(), table_.rowCount() - 1);
        const int column = before_.isValid() ? before_.column() : static_cast<int>(ComingColumn::Title);
        selectionModel()->setCurrentIndex(table_.index(row, column),
                                          QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        executeDelayedItemsLayout();
        verticalScrollBar()->setValue(topRow_);
    }
    emit currentSongChanged();
}

QList<int> ComingView::chosenRows() const
{
    QList<int> rows;
    const QModelIndexList chosen = selectionModel()->selectedRows();
    for (const QModelIndex &index : chosen)
        rows += index.row();
    std::sort(rows.begin(), rows.end());
    return rows;
}

// The blank ticks all that are chosen, or takes their ticks away; Enter edits. Enter in an editor comes here
// too, before it is closed.
void ComingView::keyPressEvent(QKeyEvent *event)
{
    if (state() == EditingState)
        return;
    const QList<int> rows = chosenRows();
    if (event->key() == Qt::Key_Space && !rows.isEmpty())
        table_.setTicked(rows, !table_.songs()[rows.first()].isTicked);
    else if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && currentIndex().isValid()
             && currentIndex().flags().testFlag(Qt::ItemIsEditable))
        edit(currentIndex());
    else
        QTableView::keyPressEvent(event);
}

void ComingView::contextMenuEvent(QContextMenuEvent *event)
{
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    emit menuWanted(byKey ? viewport()->mapToGlobal(visualRect(currentIndex()).center())
                          : event->globalPos());
}

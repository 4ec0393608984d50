#include "songs/songs_view.h"

#include "look/look.h"
#include "songs/found_delegate.h"
#include "songs/song_table.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QScrollBar>

#include <array>
#include <bitset>

// Numbers and ticks take what their headings need; the texts share what is left, and are no narrower than
// this.
static constexpr std::array<int, songColumns> leastWidths = {46, 110, 70, 56, 62, 42, 46, 78, 44, 68};

SongsView::SongsView(SongTable &table, QWidget *parent)
    : QTableView(parent)
    , table_(table)
    , nothing_(new QLabel(viewport()))
{
    setObjectName("Songs");
    setAccessibleName("Songs");
    setFont(verdana(9.75));
    setModel(&table);
    setItemDelegate(new FoundDelegate(table, font(), this));
    setSelectionBehavior(SelectRows);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setWordWrap(false);
    setCornerButtonEnabled(false);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    horizontalHeader()->setFont(font());
    horizontalHeader()->setHighlightSections(false);
    for (int column = 0; column < songColumns; column += 1)
        setColumnWidth(column, leastWidths[static_cast<size_t>(column)]);
    horizontalHeader()->setSortIndicator(0, Qt::AscendingOrder);
    setSortingEnabled(true);
    nothing_->setObjectName("nothing");
    nothing_->setAlignment(Qt::AlignCenter);

    connect(model(), &QAbstractItemModel::modelAboutToBeReset, this, [this] { before_ = place(); });
    connect(model(), &QAbstractItemModel::modelReset, this, [this] { restore(before_); });
    connect(selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this] { emit currentSongChanged(currentSong()); });
    connect(this, &QTableView::doubleClicked, this,
            [this](const QModelIndex &index) { emit songEntered(table_.songAt(index.row())); });
    showWhetherEmpty();
}

QList<int> SongsView::chosenSongs() const
{
    std::bitset<Module1State::lastRecord + 1> known;
    QList<int> rows;
    for (const QItemSelectionRange &range : selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); row += 1)
            rows += row;
    }
    std::sort(rows.begin(), rows.end());
    QList<int> songs;
    for (const int row : rows) {
        const int n = table_.songAt(row);
        if (!known[static_cast<size_t>(n)])
            songs += n;
        known.set(static_cast<size_t>(n));
    }
    return songs;
}

int SongsView::currentSong() const
{
    return currentIndex().isValid() ? table_.songAt(currentIndex().row()) : 0;
}

void SongsView::goToRow(int row)
{
    selectOnly(table_.index(row, qMax(currentIndex().column(), 0)));
    scrollTo(currentIndex());
}

void SongsView::selectOnly(const QModelIndex &index)
{
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

SongsView::Place SongsView::place() const
{
    Place place{chosenSongs(), currentSong(), currentIndex()};
    const int top = rowAt(0);
    const int bottom = rowAt(viewport()->height() - 1);
    const int current = currentIndex().row();
    const bool isCurrentInView = current >= top && (current <= bottom || bottom < 0);
    const int row = current >= 0 && isCurrentInView ? current : top;
    if (top >= 0) {
        place.song = table_.songAt(row);
        place.rowsAbove = row - top;
    }
    return place;
}

void SongsView::restore(const Place &before)
{
    restoreCurrent(before);
    executeDelayedItemsLayout();
    if (const int row = table_.rowOf(before.song); row >= 0)
        verticalScrollBar()->setValue(row - before.rowsAbove);
    else if (currentIndex().isValid())
        scrollTo(currentIndex());
    showWhetherEmpty();
    emit currentSongChanged(currentSong());
}

// Where the current song is no longer shown, the one that stands in its place is the next.
void SongsView::restoreCurrent(const Place &before)
{
    if (before.current == 0 || table_.rowCount() == 0)
        return;
    const int row = table_.rowOf(before.current);
    const int next = qMin(before.currentIndex.row(), table_.rowCount() - 1);
    selectOnly(table_.index(row >= 0 ? row : next, before.currentIndex.column()));
    restoreChosen(before.chosen);
}

void SongsView::restoreChosen(const QList<int> &records)
{
    std::bitset<Module1State::lastRecord + 1> isChosen;
    for (const int n : records)
        isChosen.set(static_cast<size_t>(n));
    const auto chosenIn = [&](int row) { return isChosen[static_cast<size_t>(table_.songAt(row))]; };
    QItemSelection selection;
    for (int row = 0; row < table_.rowCount(); row += 1) {
        const int first = row;
        while (row < table_.rowCount() && chosenIn(row))
            row += 1;
        if (row > first)
            selection.select(table_.index(first, 0), table_.index(row - 1, songColumns - 1));
    }
    if (!selection.isEmpty())
        selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

void SongsView::showWhetherEmpty()
{
    nothing_->setText(Module1.recCount == 0 ? "There are no songs yet." : "Nothing found.");
    nothing_->setVisible(table_.rowCount() == 0);
}

void SongsView::resizeEvent(QResizeEvent *event)
{
    QTableView::resizeEvent(event);
    nothing_->setGeometry(viewport()->rect());
    fitTexts();
}

// In the proportions that they have, which a person may have changed.
void SongsView::fitTexts()
{
    int others = 0;
    int texts = 0;
    for (int column = 0; column < songColumns; column += 1)
        (isText(SongColumn(column)) ? texts : others) += columnWidth(column);
    const int room = viewport()->width() - others;
    for (int column = 0; column < songColumns; column += 1) {
        if (isText(SongColumn(column)))
            setColumnWidth(
                column, qMax(leastWidths[static_cast<size_t>(column)], columnWidth(column) * room / texts));
    }
}

// In a column that cannot be edited, the title is.
void SongsView::editCurrent()
{
    const QModelIndex current = currentIndex();
    if (!current.isValid())
        return;
    const bool canBeEdited = current.flags().testFlag(Qt::ItemIsEditable);
    const QModelIndex cell =
        canBeEdited ? current : current.siblingAtColumn(static_cast<int>(SongColumn::Title));
    selectionModel()->setCurrentIndex(cell, QItemSelectionModel::NoUpdate);
    edit(cell);
}

// Also Backspace, since it takes a letter away.
static bool belongsToText(const QKeyEvent &event)
{
    const Qt::KeyboardModifiers held = event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
    const bool isAltGr = held == (Qt::ControlModifier | Qt::AltModifier) || held == Qt::GroupSwitchModifier;
    if (held != Qt::NoModifier && !isAltGr)
        return false;
    return event.key() == Qt::Key_Backspace || (!event.text().isEmpty() && event.text()[0].isPrint());
}

void SongsView::keyPressEvent(QKeyEvent *event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && state() == EditingState)
        event->ignore(); // it closes the box of a cell
    else if (isEnter && currentSong() > 0)
        emit songEntered(currentSong());
    else if (event->key() == Qt::Key_F2)
        editCurrent();
    else if (event->matches(QKeySequence::Copy))
        emit copyWanted();
    else if (event->key() == Qt::Key_Up && event->modifiers() == Qt::NoModifier && currentIndex().row() < 1)
        emit leftUpwards();
    else if (belongsToText(*event))
        emit typed(event);
    else
        QTableView::keyPressEvent(event);
}

void SongsView::contextMenuEvent(QContextMenuEvent *event)
{
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    const QPoint belowCurrent = viewport()->mapToGlobal(visualRect(currentIndex()).bottomLeft());
    emit menuWanted(byKey ? belowCurrent : event->globalPos());
}

#pragma once

#include <QListWidget>

// A list of one-line rows, of which any or none are selected, and which can be dragged. Qt also has a
// current row, which it moves by itself (at focus, when rows are removed); that one means nothing here.
// Where none is selected, Down selects the next row in sight: the one that a change left in its place, or
// else the topmost. A row too long for the list is cut short, and a tool-tip shows the whole of it.
class RowList : public QListWidget
{
    Q_OBJECT
public:
    explicit RowList(QWidget *parent);

    // Counted from 0, ascending.
    QList<int> selectedRows() const;
    // The text of the first row selected; empty if there is none.
    QString selectedText() const;
    // Selects just these rows and brings them into view.
    void selectRows(const QList<int> &rows);
    // Puts others in the place of `count` rows from `first` on; none of them is selected then.
    void replaceRows(int first, int count, const QStringList &texts);

    // Lets several rows be selected, and rows of this list or another one be dropped between its own.
    void takeRows();

signals:
    // Rows were dropped before the row `place`, which may lie behind the last one; the lists are as they
    // were. Comes when the drop is over, so that a message box may follow.
    void rowsDropped(const RowList *from, const QList<int> &rows, int place);
    // The same while the drop is still under way.
    void rowsCame(const RowList *from, const QList<int> &rows, int place, QPrivateSignal);

protected:
    Qt::DropActions supportedDropActions() const override { return Qt::CopyAction | Qt::MoveAction; }
    QMimeData *mimeData(const QList<QListWidgetItem *> &items) const override;
    void startDrag(Qt::DropActions actions) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void selectionChanged(const QItemSelection &selected, const QItemSelection &deselected) override;
    bool viewportEvent(QEvent *event) override;

private:
    int nextRow() const;
    QPixmap picture(const QList<int> &rows) const;
    int placeAt(QPoint position) const;
    void showPlace(int place);

    int next_ = -1; // where Down begins when no row is selected; -1 for the topmost row in sight
    int place_ = -1; // where what is being dragged would drop; -1 if nowhere
};

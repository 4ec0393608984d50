#pragma once

#include <QListWidget>

// A list of one-line rows, of which one or none is selected. Qt also has a current row, which it moves by
// itself (at focus, when rows are removed); that one means nothing here. A row too long for the list is
// cut short, and a tool-tip shows the whole of it.
class RowList : public QListWidget
{
    Q_OBJECT
public:
    explicit RowList(QWidget *parent);

    // Counted from 0; -1 if no row is selected.
    int selectedRow() const;
    // Empty if no row is selected.
    QString selectedText() const;
    // Selects a row and brings it into view; -1 leaves none selected.
    void selectRow(int row);

protected:
    bool viewportEvent(QEvent *event) override;
};

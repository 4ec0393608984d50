#pragma once

#include <QTableView>

class ComingTable;
class PageImages;

// The table "Songs to bring in", with small pictures of the pages that are in view. What is typed in a cell,
// or chosen there, holds for all rows that are chosen.
class ComingView : public QTableView
{
    Q_OBJECT
public:
    ComingView(ComingTable &table, PageImages &images, QWidget *parent);

    // From above to below.
    QList<int> chosenRows() const;

signals:
    void menuWanted(const QPoint &placeOnScreen);
    void currentSongChanged();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;

private:
    void takePlaceAgain();

    ComingTable &table_;
    QModelIndex before_; // the current cell before the rows were made anew
    int topRow_ = 0;
};

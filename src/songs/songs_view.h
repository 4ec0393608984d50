#pragma once

#include <QTableView>

class QLabel;
class SongTable;

// The table of songs. Where its rows change, the selected songs and the current one stay what they were, and
// what is in view stays there as far as it can.
class SongsView : public QTableView
{
    Q_OBJECT
public:
    SongsView(SongTable &table, QWidget *parent);

    // The numbers of the songs that are selected, from above to below, each once.
    QList<int> chosenSongs() const;
    // The number of the current one; 0 if there is none.
    int currentSong() const;
    // Makes the song in this row the current and the only selected one.
    void goToRow(int row);

signals:
    void songEntered(int n); // Enter, or a double click
    void currentSongChanged(int n);
    void menuWanted(const QPoint &placeOnScreen);
    void copyWanted();
    void leftUpwards(); // Up in the first row
    void typed(QKeyEvent *event); // a key that belongs to a text

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    // What is to be the same after the rows have changed.
    struct Place {
        QList<int> chosen;
        int current = 0;
        QModelIndex currentIndex;
        int song = 0; // one that is in view
        int rowsAbove = 0; // how many rows of the view stand above it
    };
    Place place() const;
    void selectOnly(const QModelIndex &index);
    void restore(const Place &before);
    void restoreCurrent(const Place &before);
    void restoreChosen(const QList<int> &records);
    void editCurrent();
    void showWhetherEmpty();
    void fitTexts();

    SongTable &table_;
    Place before_;
    QLabel *nothing_; // stands in the table where there are no rows
};

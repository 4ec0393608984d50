#pragma once

#include "songs/song_table.h"
#include "window/layout_window.h"

#include <QTimer>

#include <functional>

class Edits;
class PagePane;
class QAction;
class QComboBox;
class QLabel;
class QLayout;
class QLineEdit;
class QPushButton;
class SongsView;

// The window "Songs": any song found by a few letters, and many changed at once.
class SongsWindow : public LayoutWindow
{
    Q_OBJECT
public:
    // What it needs of other windows.
    struct Doors {
        std::function<void(int)> showSong; // in the main window
        std::function<bool()> save; // what its button Save does
        std::function<void(const QList<int> &)> addToPlaylist;
        std::function<void(const QList<int> &)> emptyNumbers; // asks first
    };
    // The actions undo and redo belong to whoever made them.
    SongsWindow(Edits &edits, Doors doors, const QList<QAction *> &undoAndRedo);

    // The caret in "Find", with all of its text selected.
    void startFinding();
    // All songs of this choice, whatever was searched.
    void showAll(SongChoice::Kind kind);
    // What lies on the disk, and the names of the categories, may be others.
    void readDisk();

protected:
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QLayout *makeHead();
    QWidget *makeMiddle();
    QLayout *makeFoot();
    void connectAll();

    void choose(int row);
    void find();
    void enterTable();
    void showCounts();
    void showPages();
    void openMenu(const QPoint &placeOnScreen);
    void copyChosen();

    Edits &edits_;
    const Doors doors_;
    SongTable table_;
    bool wasLeft_ = false; // another window was active since the disk was read

    QLineEdit *find_;
    QComboBox *show_;
    SongsView *songs_;
    PagePane *left_;
    PagePane *right_;
    QLabel *failures_;
    QLabel *count_;
    QLabel *unsaved_;
    QPushButton *save_;
    QTimer pagesSoon_; // so that the list does not wait for pictures
};

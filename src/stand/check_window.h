#pragma once

#include "stand/findings_model.h"
#include "window/layout_window.h"

#include <functional>

class QLabel;
class QLayout;
class QPushButton;
class QTableView;

// The window "Check the archive": what is wrong with the archive on the disk, where that is, and how it can
// be put right.
class CheckWindow : public LayoutWindow
{
    Q_OBJECT
public:
    // What it needs of others.
    struct Doors {
        std::function<void(int)> showSong; // in the main window
        std::function<void()> showSongsWithoutTitle;
        std::function<void()> showSongsOfSameTitle;
        std::function<void()> showPlaylists;
        std::function<void()> filesChanged; // after something was mended
    };
    explicit CheckWindow(Doors doors);

    // Looks through the archive anew.
    void check();

private:
    void makeTable();
    QLayout *makeFoot();
    QList<int> chosenRows() const;
    void showButtons();
    void showState(const QString &before);
    void checkAndTell(const QString &before);
    void goTo();
    void mendChosen();

    const Doors doors_;
    FindingsModel *model_;
    QLabel *state_;
    QTableView *findings_;
    QPushButton *goTo_ = nullptr;
    QPushButton *mend_ = nullptr;
};

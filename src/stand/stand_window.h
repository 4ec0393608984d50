#pragma once

#include "stand/stand_model.h"
#include "window/layout_window.h"

class QLabel;
class QLayout;
class QLineEdit;
class QPushButton;
class QTableView;

// The window "Copy to the stand": where the archive is to be carried, what is to be done for that, and doing
// it.
class StandWindow : public LayoutWindow
{
    Q_OBJECT
public:
    // `root` is the stand's top folder, empty where none has been chosen yet; it gets the one that is, and
    // outlives the window.
    explicit StandWindow(QString &root);

    // Looks anew at what is to be done.
    void look();

private:
    QLayout *makeHead();
    void makeTable();
    QLayout *makeFoot();
    void choose();
    bool mayCopy() const;
    void copy();
    void showState();
    QString stateText() const;

    QString &root_;
    StandModel *model_;
    QLineEdit *folder_;
    QLabel *state_;
    QTableView *files_;
    QPushButton *again_ = nullptr;
    QPushButton *copy_ = nullptr;
};

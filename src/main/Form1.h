#pragma once

#include "archive/archive_file.h"
#include "window/form.h"

#include <functional>

class ImageFrame;
class QAction;
class QLabel;
class QMenu;
class QPushButton;

// The start window and the only way into the others: one record at a time, chosen with VScroll1, whose
// value is the record on display. Every keystroke goes at once into the arrays of Module1, and to the
// disk at Save.
class Form1 : public Form
{
    Q_OBJECT
public:
    // What shows each of the other windows that this one leads to.
    struct Doors {
        std::function<void()> sinistra;
        std::function<void()> destra;
        std::function<void()> mp3;
        std::function<void()> playlistfrm;
        std::function<void()> midifrm;
        std::function<void()> Premerge;
    };
    // A menu behind "Work". The actions belong to whoever made them and outlive this window; null is a line.
    struct Menu {
        QString title;
        QList<QAction *> entries;
    };
    // Of the menus, one without entries is not shown.
    explicit Form1(Doors doors, QList<Menu> menus = {});

    // Shows this song, or the one nearest to it that there is, and brings the window forward.
    void showSong(int n);
    // What the button Save does, with its questions and messages; true if the archive was saved.
    bool save();
    // For whoever has put another archive in place: forgets the one in memory, what was typed too, closes
    // the window and opens it again on what the disk holds, on song `n` or, for 0, on the last one.
    void reload(int n = 0);

protected:
    void build(ControlMaker make) override;
    void load() override;
    void closeBox() override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void makeFields(ControlMaker make);
    void makePages(ControlMaker make);
    void makeButtons(ControlMaker make);
    void makeMenus();
    QMenu *makeMenu(const QString &title);
    void connectKeys();

    void showRecord();
    void writeThrough(Module1State::Column &column, const TextBox *box);
    void Command2_Click();
    void Command5_Click();
    void Command6_Click();
    void chiudi_Click();

    bool readArchive();
    bool beginArchive();
    void showAnew(int record);
    void showCount();

    TextBox *Text1 = nullptr;
    TextBox *Text2 = nullptr;
    TextBox *Text3 = nullptr;
    TextBox *Text4 = nullptr;
    ImageFrame *Image1 = nullptr;
    ImageFrame *Image2 = nullptr;
    QLabel *Picture1 = nullptr;
    QLabel *Label6 = nullptr;
    QPushButton *Command1 = nullptr;
    QPushButton *Command2 = nullptr;
    QPushButton *Command3 = nullptr;
    QPushButton *Command4 = nullptr;
    QPushButton *Command5 = nullptr;
    QPushButton *Command6 = nullptr;
    ScrollBar *VScroll1 = nullptr;

    const Doors show_;
    const QList<Menu> menus_;
};

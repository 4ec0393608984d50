#pragma once

#include "archive/archive_file.h"
#include "window/form.h"

#include <functional>

class ImageFrame;
class QLabel;
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
    explicit Form1(Doors doors);

protected:
    void build(ControlMaker make) override;
    void load() override;
    void closeBox() override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void makeFields(ControlMaker make);
    void makePages(ControlMaker make);
    void makeButtons(ControlMaker make);
    void makeMenu();
    void connectKeys();

    void showRecord();
    void writeThrough(Module1State::Column &column, const TextBox *box);
    void Command1_Click();
    void Command2_Click();
    void Command5_Click();
    void Command6_Click();
    void chiudi_Click();

    bool readArchive();
    bool beginArchive();
    void showLastRecord();
    void showCount();
    bool hasUnsavedChanges() const;

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
};

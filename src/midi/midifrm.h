#pragma once

#include "midi/midi_file.h"
#include "window/form.h"

class MidiBox;
class QLabel;
class QPushButton;

// The MIDI settings of one song: bank select MSB and LSB and program change for each of the 16 channels.
// The window holds on to the song that was on display when it opened, whatever the main window moves to.
class midifrm : public Form
{
    Q_OBJECT
public:
    midifrm();

protected:
    void build(ControlMaker make) override;
    void load() override;
    void closeBox() override;

private:
    void makeHeads(ControlMaker make);
    void makeRow(ControlMaker make, int k);
    void makeTitle(ControlMaker make);
    void makeButtons(ControlMaker make);
    QList<QWidget *> tabOrder() const;

    void readTable();
    void showSong();
    void tellIrregular(int blocks) const;
    MidiFields boxes() const;
    bool bringTableUpToDate();

    void Command1_Click();
    void Command2_Click();
    void Command3_Click();

    using Column = std::array<MidiBox *, MidiTable::channels + 1>;

    int midiRecord_ = 0; // the song that the window holds on to
    MidiTable table_; // the file as it was when last read or written
    QString refusal_; // why the file must not be written; empty while it may be

    Column MSB{};
    Column LSB{};
    Column PC{};
    QLabel *Label5 = nullptr;
    QLabel *Label6 = nullptr;
    QPushButton *Command1 = nullptr;
    QPushButton *Command2 = nullptr;
    QPushButton *Command3 = nullptr;
};

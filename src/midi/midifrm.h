#pragma once

#include "midi/midi_save.h"
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
    MidiSaving save();
    static void tell(const MidiSaving &saving);

    void Command1_Click(); // Esc
    void Command2_Click(); // Save
    void Command3_Click(); // Reset

    using Column = std::array<MidiBox *, MidiTable::channels + 1>;

    int midiRecord_ = 0; // the song that the window holds on to
    MidiTable table_; // the file as it was when last read or written
    QString refusal_; // why the file must not be written; empty while it may be

    // In the order of the table of controls.
    Column MSB{}; // bank select MSB, channels 1 to 16
    Column LSB{}; // bank select LSB
    Column PC{}; // program change
    QLabel *Label5 = nullptr; // the song's title
    QLabel *Label6 = nullptr; // hidden: how many songs have settings
    QPushButton *Command1 = nullptr; // Esc
    QPushButton *Command3 = nullptr; // Reset
    QPushButton *Command2 = nullptr; // Save
};

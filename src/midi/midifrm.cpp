#include "midi/midifrm.h"

#include "archive/Module1.h"
#include "look/plain_text.h"
#include "midi/midi_box.h"
#include "window/message_box.h"

#include <QLabel>
#include <QPushButton>

using Kind = Result::Kind;
using Outcome = MidiSaving::Outcome;

static const char defaultText[] = "000";
static const QString notSaved = QStringLiteral("The settings were not saved");

midifrm::midifrm()
    : Form({"midifrm", "Midi Device", 8640, 8640, QPoint(180, 330)})
{
}

void midifrm::build(ControlMaker make)
{
    makeHeads(make);
    const ControlMaker inFrame(make.frame("Frame2", {120, 360, 8415, 6135}));
    for (int k = 1; k <= MidiTable::channels; k += 1)
        makeRow(inFrame, k);
    makeTitle(make);
    makeButtons(make);
    setTabOrder(tabOrder());
}

void midifrm::makeHeads(ControlMaker make)
{
    const QFont font = msSansSerif(12);
    make.label("Label10", "Ch", {720, 0, 495, 375}, font);
    make.label("Label9", "MSB", {1320, 0, 615, 375}, font);
    make.label("Label8", "LSB", {2160, 0, 615, 375}, font);
    make.label("Label7", "PC", {3000, 0, 615, 375}, font);
    make.label("Label1", "Ch", {4680, 0, 495, 375}, font);
    make.label("Label2", "MSB", {5280, 0, 615, 375}, font);
    make.label("Label3", "LSB", {6120, 0, 615, 375}, font);
    make.label("Label4", "PC", {6960, 0, 615, 375}, font);
}

static MidiBox *makeValue(ControlMaker make, const QString &name, const QString &spokenName, Place place)
{
    auto *box = make.add<MidiBox>(name, spokenName, place, verdana(12));
    box->setAlignment(Qt::AlignTop); // the boxes of a row differ in height, and their texts stand level
    box->setText(defaultText);
    box->setToolTip(spokenName);
    return box;
}

void midifrm::makeRow(ControlMaker make, int k)
{
    static constexpr int rowHeight = 720;
    const int place = (k - 1) % 8;
    const int half = k <= 8 ? 0 : 3960; // how far right of rows 1 to 8 the row stands
    const int top = 240 + rowHeight * place;
    const auto channel = static_cast<size_t>(k);
    const auto spoken = QStringLiteral("Channel %1, %2, 0 to 127").arg(k);

    const auto number = make.textBox(indexed("Text1", k - 1), QStringLiteral("Channel %1").arg(k),
                                     {600 + half, top, 495, 405}, msSansSerif(12));
    number->setAlignment(Qt::AlignTop);
    number->setText(QString::number(k));
    number->setEnabled(false);
    MSB[channel] =
        makeValue(make, indexed("MSB", k), spoken.arg("bank select MSB"), {1200 + half, top, 615, 390});
    LSB[channel] =
        makeValue(make, indexed("LSB", k), spoken.arg("bank select LSB"), {2040 + half, top, 615, 375});
    PC[channel] =
        makeValue(make, indexed("PC", k), spoken.arg("program change"), {2880 + half, top, 615, 375});

    const int underline = rowHeight * (place + 1);
    make.line(indexed("Line1", k), 1200 + half, 1800 + half, underline);
    make.line(indexed("Line2", k), 2040 + half, 2640 + half, underline);
    make.line(indexed("Line3", k), 2880 + half, 3480 + half, underline);
}

void midifrm::makeTitle(ControlMaker make)
{
    const ControlMaker inFrame(make.frame("Frame3", {120, 6600, 8415, 975}));
    Label5 = inFrame.label("Label5", "Title", {120, 360, 8175, 495}, msSansSerif(14.25));
    Label5->setWordWrap(false);
    Label6 = make.label("Label6", "Label6", {8640, 2640, 495, 375}, msSansSerif(12));
    Label6->hide();
}

void midifrm::makeButtons(ControlMaker make)
{
    Command1 = make.button("Command1", "Esc", {120, 7680, 2535, 855});
    Command3 = make.button("Command3", "Reset", {3000, 7680, 2655, 855});
    Command2 = make.button("Command2", "Save", {6000, 7680, 2535, 855});
    on(Command1, &QPushButton::clicked, [this] { Command1_Click(); });
    on(Command2, &QPushButton::clicked, [this] { Command2_Click(); });
    on(Command3, &QPushButton::clicked, [this] { Command3_Click(); });
}

// Row by row, but for PC(12), which comes between the buttons.
QList<QWidget *> midifrm::tabOrder() const
{
    QList<QWidget *> order;
    for (size_t k = 1; k <= MidiTable::channels; k += 1) {
        order += {MSB[k], LSB[k]};
        if (k != 12)
            order += PC[k];
    }
    return order += {Command2, Command1, PC[12], Command3};
}

void midifrm::load()
{
    midiRecord_ = Module1.midiRecord;
    readTable();
    MSB[1]->selectAll();
}

void midifrm::readTable()
{
    const QString title = Module1.recTitle[static_cast<size_t>(midiRecord_)];
    Label5->setToolTip(plainToolTip(QStringLiteral("Song %1: %2").arg(midiRecord_).arg(title)));
    table_ = {};
    const Result read = readMidiFile(table_);
    refusal_ = read.ok() || read.kind == Kind::Missing ? QString() : read.refusal();
    if (read.kind == Kind::Missing)
        return;
    Label6->setText(QString::number(table_.midiBlockCount));
    Label5->setText(title);
    if (refusal_.isEmpty())
        showSong();
    else
        messageBox(refusal_);
}

void midifrm::showSong()
{
    MidiFields fields;
    const int blocks = collectMidiFields(table_, midiRecord_, fields);
    for (size_t k = 1; blocks > 0 && k <= MidiTable::channels; k += 1) {
        MSB[k]->setText(fields.midiFieldMsb[k]);
        LSB[k]->setText(fields.midiFieldLsb[k]);
        PC[k]->setText(fields.midiFieldPc[k]);
    }
    tellIrregular(blocks);
}

void midifrm::tellIrregular(int blocks) const
{
    if (table_.endMissing) {
        messageBox(QStringLiteral("The end of spartiti/midi.js is missing or is not as it should be. The "
                                  "settings of %1 songs were read, and a Save would keep these alone.")
                       .arg(table_.midiBlockCount));
    }
    if (blocks > 1) {
        messageBox(QStringLiteral("spartiti/midi.js holds settings for this song in %1 places. They are "
                                  "shown joined, and a Save would put what is shown in each place.")
                       .arg(blocks));
    }
}

MidiFields midifrm::boxes() const
{
    MidiFields fields;
    for (size_t k = 1; k <= MidiTable::channels; k += 1) {
        fields.midiFieldMsb[k] = MSB[k]->text();
        fields.midiFieldLsb[k] = LSB[k]->text();
        fields.midiFieldPc[k] = PC[k]->text();
    }
    return fields;
}

// Esc
void midifrm::Command1_Click()
{
    table_ = {};
    unload();
}

void midifrm::closeBox()
{
    Command1_Click();
}

// Save
void midifrm::Command2_Click()
{
    if (!refusal_.isEmpty())
        messageBox(notSaved + ". " + refusal_);
    else
        tell(save());
}

// Asks before it replaces what another program did to the song; that may happen again while one is asked.
MidiSaving midifrm::save()
{
    MidiSaving saving = saveMidi(table_, midiRecord_, boxes());
    while (saving.outcome == Outcome::SongChanged
           && askBeforeLoss("Another program has changed this song's settings in spartiti/midi.js. Do you "
                            "want to replace them by what this window shows?")) {
        table_ = std::move(saving.onDisk);
        saving = saveMidi(table_, midiRecord_, boxes());
    }
    return saving;
}

void midifrm::tell(const MidiSaving &saving)
{
    switch (saving.outcome) {
    case Outcome::Saved:
        return messageBox("Successfully saved message");
    case Outcome::Refused:
        return messageBox(notSaved + ". " + saving.result.text());
    case Outcome::NotRead:
        return messageBox(notSaved + ". " + saving.result.refusal());
    case Outcome::EndMissing:
        return messageBox(notSaved
                          + ". The end of spartiti/midi.js has gone missing since this window was opened. It "
                            "is left as it is.");
    case Outcome::NotWritten:
        return messageBox(notSaved + "; the file is as it was before.\n" + saving.result.text());
    case Outcome::SongChanged: // and the answer was No
        return;
    }
}

// Reset
void midifrm::Command3_Click()
{
    for (const Column &column : {MSB, LSB, PC}) {
        for (size_t k = 1; k <= MidiTable::channels; k += 1)
            column[k]->setText(defaultText);
    }
}

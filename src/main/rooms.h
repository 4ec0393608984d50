#pragma once

#include "audio/mp3.h"
#include "main/Form1.h"
#include "merge/Premerge.h"
#include "merge/merging.h"
#include "midi/midifrm.h"
#include "pages/PagePicker.h"
#include "playlists/playlistfrm.h"
#include "songs/edits.h"

// Every window of the program, the edits and the entries of the menus, and what leads from one to another.
// No window knows a second one: each is handed what it needs of the others here. None has controls before it
// is shown.
class Rooms
{
public:
    Rooms();

    Edits edits;

    PagePicker sinistra{Page::Left};
    PagePicker destra{Page::Right};
    mp3 mp3_;
    playlistfrm playlistfrm_;
    midifrm midifrm_;
    merging merging_;
    Premerge Premerge_;

private:
    void openMerging();
    QList<Form1::Menu> menus();

    QObject actions_; // owns the entries of the menus
    const Form1::UndoActions undoing_;

public:
    Form1 form1;
};

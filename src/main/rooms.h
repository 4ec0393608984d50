#pragma once

#include "audio/mp3.h"
#include "main/Form1.h"
#include "merge/Premerge.h"
#include "merge/merging.h"
#include "midi/midifrm.h"
#include "pages/PagePicker.h"
#include "playlists/playlistfrm.h"

// Every window of the program, and what leads from one to another. No window knows a second one: each is
// handed what it needs of the others here. None has controls before it is shown.
struct Rooms {
    PagePicker sinistra{Page::Left};
    PagePicker destra{Page::Right};
    mp3 mp3_;
    playlistfrm playlistfrm_;
    midifrm midifrm_;
    merging merging_{[this] { form1.reload(); }};
    Premerge Premerge_{[this] { openMerging(); }};
    Form1 form1{{[this] { sinistra.show(); }, [this] { destra.show(); }, [this] { mp3_.show(); },
                 [this] { playlistfrm_.show(); }, [this] { midifrm_.show(); }, [this] { Premerge_.show(); }}};

private:
    void openMerging();
};

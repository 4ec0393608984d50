#pragma once

#include "audio/categories_window.h"
#include "audio/mp3.h"
#include "help/manual_window.h"
#include "history/earlier_versions.h"
#include "history/history.h"
#include "intake/intake_window.h"
#include "main/Form1.h"
#include "merge/Premerge.h"
#include "merge/merging.h"
#include "midi/midifrm.h"
#include "pages/PagePicker.h"
#include "playlists/playlistfrm.h"
#include "songs/edits.h"
#include "songs/songs_window.h"
#include "stand/check_window.h"
#include "stand/stand_window.h"

#include <QPointer>

// Every window of the program, the edits and the entries of the menus, and what leads from one to another.
// No window knows a second one: each is handed what it needs of the others here. None has controls before it
// is shown.
class Rooms
{
public:
    Rooms();
    ~Rooms();

    // Shows the main window. From now on it is kept what is replaced, and soon what is typed.
    void start();
    void beginHistory();

    Edits edits;
    std::unique_ptr<History> history; // none before one of the two

    PagePicker sinistra;
    PagePicker destra;
    mp3 mp3_;
    playlistfrm playlistfrm_;
    midifrm midifrm_;
    merging merging_;
    Premerge Premerge_;

private:
    void openMerging();
    void openVersions();
    void showDisk();
    void emptyNumbers(const QList<int> &songs);
    void storedPages(int record, const QList<Page> &pages);
    void storedRecording(int record, int category);
    void leave(bool wantsUnsaved);
    Form1::Doors doors();
    void dropped(const QStringList &paths, std::optional<Page> page);
    void openIntake();
    IntakeWindow *intake();
    void findSong();
    void openCategories();
    void namesChanged();
    void openCheck();
    void openStand();
    void showSongs(SongChoice::Kind kind);
    void openManual();
    void showAbout();
    QList<Form1::Menu> menus();
    QAction *entry(const QString &text, void (Rooms::*open)(), const QKeySequence &key = {});

    QObject actions_; // owns the entries of the menus
    const UndoActions undoing_;
    QPointer<EarlierVersions> versionsWindow_;
    QPointer<SongsWindow> songs_;
    QPointer<CategoriesWindow> categories_;
    QPointer<IntakeWindow> intake_;
    QPointer<CheckWindow> check_;
    QPointer<ManualWindow> manual_;
    QPointer<StandWindow> standWindow_;
    QString stand_; // the folder that was chosen last

public:
    Form1 form1;
};

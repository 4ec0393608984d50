#pragma once

#include "playlists/playlist_file.h"
#include "playlists/song_list.h"
#include "window/form.h"

class ComboBox;
class QLabel;
class QPushButton;
class RowList;

// Builds playlists: titles of the archive (List1) become the list being edited (List2), which is saved
// under the name in Text1. Combo1 offers the stored playlists.
class playlistfrm : public Form
{
    Q_OBJECT
public:
    playlistfrm();

protected:
    void build(ControlMaker make) override;
    void load() override;

private:
    void connectHandlers();

    void Combo1_Click();
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();
    void Command4_Click();
    void Command5_Click();
    void Command6_Click();
    void Command8_Click();

    void showCount(int count);
    void offerPlaylists(int count);
    void addSelected();
    void swapWithNext(int row);
    void emptyEditedList();
    bool mayDropUnknownSongs() const;

    Playlists playlists; // all that Combo1 offers, with its songs
    SongList songs; // slot r + 1 belongs to row r of List2, and there are as many
    int unknownSongs = 0; // numbers of the playlist picked that no record has; they have empty slots
    int newPlaylistPending = 0; // 1 from a click on "New playlist" until the next Save

    RowList *List1 = nullptr;
    RowList *List2 = nullptr;
    ComboBox *Combo1 = nullptr;
    TextBox *Text1 = nullptr;
    QLabel *Label1 = nullptr;
    QPushButton *Command1 = nullptr;
    QPushButton *Command2 = nullptr;
    QPushButton *Command3 = nullptr;
    QPushButton *Command4 = nullptr;
    QPushButton *Command5 = nullptr;
    QPushButton *Command6 = nullptr;
    QPushButton *Command7 = nullptr;
    QPushButton *Command8 = nullptr;
};

#pragma once

#include "playlists/edited_list.h"
#include "playlists/playlist_store.h"
#include "window/form.h"

class ComboBox;
class QLabel;
class QPushButton;
class RowList;

// Builds playlists: titles of the archive become the list being edited, which is saved under a name. Each
// step in the list can be undone until the window is closed.
class playlistfrm : public Form
{
    Q_OBJECT
public:
    playlistfrm();

    // Shows the window and adds these records of the archive behind the songs of the list, or none of them
    // where there is no room for all; the person is told then.
    void addSongs(const QList<int> &records);

protected:
    void build(ControlMaker make) override;
    void load() override;

private:
    // What belongs to the list being edited beside its songs.
    struct Heading {
        QString name; // in Text1, when the heading is not the present one
        QString box; // in Combo1, likewise
        QString picked; // the playlist picked last
        QStringList stored; // what was stored under that name then; empty if none is picked
        bool isOfPick = false; // the list began as that playlist
        int newPlaylistPending = 0; // 1 from a click on "New playlist" until the next Save
    };

    void connectHandlers();
    void connectKeys();

    void Combo1_Click(); // a choice from the stored playlists
    void Command1_Click(); // Save
    void Command2_Click(); // ADD
    void Command3_Click(); // Move up
    void Command4_Click(); // Move down
    void Command5_Click(); // New playlist
    void Command6_Click(); // Remove
    void Command8_Click(); // Delete playlist
    void List2_Drop(const RowList *from, const QList<int> &rows, int place);

    void showCount(int count);
    void offerPlaylists(int count);
    void showChange(const RowChange &change);
    void pickPlaylist(const QString &name);
    void beginList(const QList<ListedSong> &songs, const Heading &heading);
    void exchangeHeading(Heading &other);
    bool isPicked() const;
    void forgetPick(int count);

    Playlists playlists; // as last read; all that Combo1 offers
    EditedList list{[this](const RowChange &change) { showChange(change); }};
    Heading heading;

    RowList *List1 = nullptr; // titles of the archive
    QPushButton *Command2 = nullptr; // ADD
    ComboBox *Combo1 = nullptr; // stored playlists
    QLabel *Label1 = nullptr; // how many the last read found
    QPushButton *Command5 = nullptr; // New playlist
    QPushButton *Command8 = nullptr; // Delete playlist
    RowList *List2 = nullptr; // songs of the list being edited
    QPushButton *Command3 = nullptr; // Move up
    QPushButton *Command6 = nullptr; // Remove
    QPushButton *Command4 = nullptr; // Move down
    TextBox *Text1 = nullptr; // playlist name
    QPushButton *Command7 = nullptr; // Esc
    QPushButton *Command1 = nullptr; // Save
};

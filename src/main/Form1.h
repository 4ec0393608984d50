#pragma once

#include "archive/archive_file.h"
#include "files/data_folder.h"
#include "songs/edits.h"
#include "window/form.h"
#include "window/undo_actions.h"

#include <functional>

class ImageFrame;
class QAction;
class QLabel;
class QMenu;
class QPushButton;
class RecordingMark;

// The start window and the only way into the others: one record at a time, chosen with VScroll1, whose
// value is the record on display. Every keystroke goes at once through Edits into the arrays of Module1, and
// to the disk at Save.
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
        // Files were dropped, on that page or beside the pages.
        std::function<void(const QStringList &paths, std::optional<Page> page)> dropped;
        // The program ends; what is not saved may be wanted back at the next start, or was given up.
        std::function<void(bool wantsUnsaved)> leave;
    };
    // A menu behind "Work". The actions belong to whoever made them and outlive this window; null is a line.
    struct Menu {
        QString title;
        QList<QAction *> entries;
    };
    // `undoing` stands in a menu and in the text boxes. Of the menus, one without entries is not shown.
    Form1(Doors doors, Edits &edits, UndoActions undoing, QList<Menu> menus);

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
    void makeOpenable();
    void makeButtons(ControlMaker make);
    void makeMenus();
    QMenu *makeMenu(const QString &title);
    void connectKeys();

    void showRecord();
    void lookAgain();
    void showTexts();
    void showEdited(const QList<int> &records);
    void goTo(const QList<int> &records);
    void writeThrough(Field field, const TextBox *box);
    void Command2_Click(); // Mp3
    void Command1_Click(); // Save
    void Command5_Click(); // Add
    void Command6_Click(); // SALVA CSV
    void chiudi_Click(); // Exit
    void leave(bool wantsUnsaved);

    bool readOrBegin();
    bool tell(const ArchiveReading &reading);
    void tellUnviewable(const QList<int> &songs);
    bool begin();
    bool beginWithTyped();
    bool saveSongs();
    void showArchive(int record);
    void showAnew(int record);
    void showCount();

    TextBox *Text2 = nullptr; // the title
    TextBox *Text3 = nullptr; // the author
    TextBox *Text4 = nullptr; // the tags
    TextBox *Text1 = nullptr; // the song's number, to be read alone
    ImageFrame *Image1 = nullptr; // the left page
    ImageFrame *Image2 = nullptr; // the right page
    QPushButton *Command3 = nullptr; // Left
    QPushButton *Command4 = nullptr; // Right
    QPushButton *Command2 = nullptr; // Mp3
    RecordingMark *Picture1 = nullptr; // the mark of a recording
    QLabel *Label6 = nullptr; // how many titles there are
    QPushButton *Command1 = nullptr; // Save
    QPushButton *Command5 = nullptr; // Add
    ScrollBar *VScroll1 = nullptr; // the song on display
    QPushButton *Command6 = nullptr; // SALVA CSV, hidden at first

    QList<int> toldUnviewable_; // the songs of which tellUnviewable() has told
    const Doors show_;
    Edits &edits_;
    const UndoActions undoing_;
    const QList<Menu> menus_;
};

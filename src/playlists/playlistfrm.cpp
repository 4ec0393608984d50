#include "playlists/playlistfrm.h"

#include "archive/Module1.h"
#include "controls/combo_box.h"
#include "controls/row_list.h"
#include "controls/text_box.h"
#include "playlists/playlist_questions.h"
#include "text/alphabetical.h"
#include "window/message_box.h"

#include <QLabel>
#include <QPushButton>

#include <utility>

playlistfrm::playlistfrm()
    : Form({"playlistfrm", "Playlist Manager", 12585, 7515, QPoint(585, 1560)})
{
}

void playlistfrm::build(ControlMaker make)
{
    const QFont font = verdana(15.75);
    List1 = make.add<RowList>("List1", "Titles of the archive", {120, 120, 4215, 6435}, font);
    Command2 = make.button("Command2", "ADD", {4440, 120, 735, 6375});
    Combo1 = make.add<ComboBox>("Combo1", "Stored playlists", {5400, 240, 6975, 495}, font);
    Label1 = make.label("Label1", "0", {5400, 840, 2175, 495}, font);
    Command5 = make.button("Command5", "New playlist", {7680, 840, 2295, 495});
    Command8 = make.button("Command8", "Delete playlist", {10080, 840, 2295, 495}, "Cancella Playlist");
    List2 = make.add<RowList>("List2", "Songs of the playlist", {5400, 1680, 5655, 3810}, font);
    Command3 =
        make.button("Command3", "Move up", {11160, 1800, 1215, 1095}, "Seleziona un brano per spostare su");
    Command6 =
        make.button("Command6", "Remove", {11160, 3000, 1215, 1215}, "Elimina un brano dalla playlist");
    Command4 =
        make.button("Command4", "Move down", {11160, 4320, 1215, 1095}, "Seleziona un brano per spostaregiu");
    make.label("Label2", "Playlist name", {5400, 5880, 2295, 495}, font);
    Text1 = make.textBox("Text1", "Playlist name", {7560, 5760, 3495, 615}, font);
    Command7 = make.button("Command7", "Esc", {120, 6600, 4215, 855});
    Command1 = make.button("Command1", "Save", {8280, 6600, 4215, 855});
    make.rectangle("Shape1", {5280, 120, 7215, 1335});
    make.rectangle("Shape2", {5280, 1560, 7215, 4935});
    Combo1->setEditText("Playlist");
    // A screen reader may take the text for the name, or speak of the box within.
    Combo1->setAccessibleDescription(Combo1->accessibleName());
    Combo1->lineEdit()->setAccessibleName(Combo1->accessibleName());
    Text1->setFrame(true);
    setTabOrder({Command1, List1, List2, Command2, Command3, Command4, Text1, Command5, Combo1, Command6,
                 Command7, Command8});
    List2->takeRows();
    connectHandlers();
    connectKeys();
}

void playlistfrm::connectHandlers()
{
    on(Combo1, &QComboBox::activated, [this] { Combo1_Click(); });
    on(Command1, &QPushButton::clicked, [this] { Command1_Click(); });
    on(Command2, &QPushButton::clicked, [this] { Command2_Click(); });
    on(Command3, &QPushButton::clicked, [this] { Command3_Click(); });
    on(Command4, &QPushButton::clicked, [this] { Command4_Click(); });
    on(Command5, &QPushButton::clicked, [this] { Command5_Click(); });
    on(Command6, &QPushButton::clicked, [this] { Command6_Click(); });
    on(Command7, &QPushButton::clicked, [this] { unload(); });
    on(Command8, &QPushButton::clicked, [this] { Command8_Click(); });
    on(List1, &QListWidget::itemDoubleClicked, [this] { Command2->click(); });
    on(List2, &RowList::rowsDropped, [this](auto... drop) { List2_Drop(drop...); });
}

void playlistfrm::connectKeys()
{
    const auto clickOn = [this](const QKeySequence &key, QPushButton *button, RowList *rows) {
        onKey(
            key,
            [=] {
                if (!rows->selectedRows().isEmpty())
                    button->click();
            },
            rows);
    };
    clickOn(Qt::Key_Return, Command2, List1);
    clickOn(Qt::Key_Enter, Command2, List1);
    clickOn(QKeySequence("Alt+Up"), Command3, List2);
    clickOn(QKeySequence("Alt+Down"), Command4, List2);
    clickOn(QKeySequence::Delete, Command6, List2);
    // Text1 undoes and redoes its own typing, but there is a key that Qt does not always know.
    onKey(QKeySequence("Ctrl+Z"), [this] { list.undo(); });
    onKey(QKeySequence("Ctrl+Shift+Z"), [this] { list.redo(); });
    onKey(QKeySequence("Ctrl+Y"), [this] { Text1->hasFocus() ? Text1->redo() : list.redo(); });
}

void playlistfrm::load()
{
    playlists = {};
    list.forget();
    heading = {};
    const auto firstTitle = Module1.recTitle.begin() + 1;
    List1->addItems(alphabetical({firstTitle, firstTitle + Module1.recCount}));
    const Result opened = openPlaylists(playlists);
    if (opened.kind == Result::Kind::Unwritable)
        messageBox("The file of the playlists was not begun.\n" + opened.text());
    else if (!opened.ok())
        messageBox(opened.refusal());
    showCount(playlists.count());
    offerPlaylists(playlists.count());
}

void playlistfrm::showCount(int count)
{
    Label1->setText(QString::number(count));
}

void playlistfrm::offerPlaylists(int count)
{
    const auto first = playlists.playlistName.begin() + 1;
    Combo1->addRows({first, first + count});
}

void playlistfrm::showChange(const RowChange &change)
{
    QStringList rows;
    for (const ListedSong &song : list.songs().sliced(change.first, change.inserted))
        rows += song.row;
    List2->replaceRows(change.first, change.removed, rows);
    if (change.selected)
        List2->selectRows(*change.selected);
    else if (change.inserted > 0)
        List2->scrollToBottom();
}

void playlistfrm::Combo1_Click()
{
    const QString name = Combo1->currentText();
    Combo1->undoPick();
    pickPlaylist(name);
}

void playlistfrm::pickPlaylist(const QString &name)
{
    if (tellFailure(reopenPlaylists(playlists), {}))
        return;
    const QStringList stored = playlists.storedUnder(name);
    if (stored.isEmpty()) {
        messageBox("There is no playlist of this name any more. Perhaps another program has deleted it.");
        return;
    }
    const QList<int> records = decodeSongList(stored.last());
    if (!canBePicked(records.size()))
        return;
    QList<ListedSong> songs;
    for (const int record : records)
        songs += storedSong(record);
    beginList(songs, {name, name, name, stored, true, heading.newPlaylistPending});
}

void playlistfrm::beginList(const QList<ListedSong> &songs, const Heading &next)
{
    list.replaceAll(songs, [this, other = next]() mutable { exchangeHeading(other); });
}

void playlistfrm::exchangeHeading(Heading &other)
{
    heading.name = Text1->text();
    heading.box = Combo1->currentText();
    std::swap(heading, other);
    Text1->setText(heading.name);
    Combo1->showText(heading.box);
}

void playlistfrm::Command2_Click()
{
    if (hasRoomFor(1, list))
        list.add({addedSong(recordOfTitle(List1->selectedText()))});
}

void playlistfrm::addSongs(const QList<int> &records)
{
    show();
    if (!hasRoomFor(records.size(), list))
        return;
    QList<ListedSong> songs;
    for (const int record : records)
        songs += addedSong(record);
    list.add(songs);
}

void playlistfrm::List2_Drop(const RowList *from, const QList<int> &rows, int place)
{
    if (from == List2) {
        list.move(rows, place);
    } else if (hasRoomFor(rows.size(), list)) {
        QList<ListedSong> songs;
        for (const int row : rows)
            songs += addedSong(recordOfTitle(from->item(row)->text()));
        list.add(songs, place);
    }
}

void playlistfrm::Command3_Click()
{
    list.moveUp(List2->selectedRows());
}

void playlistfrm::Command4_Click()
{
    list.moveDown(List2->selectedRows());
}

void playlistfrm::Command6_Click()
{
    list.remove(List2->selectedRows());
}

void playlistfrm::Command5_Click()
{
    Heading next = heading;
    next.name.clear();
    next.box = Combo1->currentText();
    next.isOfPick = false;
    next.newPlaylistPending = 1;
    beginList({}, next);
}

// The box still shows the playlist that was picked from it.
bool playlistfrm::isPicked() const
{
    return !heading.stored.isEmpty() && Combo1->currentText() == heading.picked;
}

// Takes the pick out of the box and offers `count` playlists in it.
void playlistfrm::forgetPick(int count)
{
    heading.stored.clear();
    heading.isOfPick = false;
    Combo1->empty();
    offerPlaylists(count);
}

void playlistfrm::Command1_Click()
{
    const QString name = Text1->text();
    if (!canBeSaved(name) || !mayLose(list.losses()))
        return;
    const bool isPickedOne = heading.isOfPick && isPicked() && heading.picked == name;
    const QStringList picked = isPickedOne ? heading.stored : QStringList();
    PlaylistSave save{name, list.text(), picked.isEmpty() ? picked : picked.last(1)}; // that was shown
    PlaylistChange saved = savePlaylist(playlists, save);
    while (saved.result.ok() && !saved.isDone) {
        if (!mayReplace(save, saved.stored, picked))
            return;
        saved = savePlaylist(playlists, save);
    }
    if (tellFailure(saved.result, "The playlist was not saved."))
        return;
    list.acceptLosses();
    showCount(saved.count);
    messageBox("Successfully saved", "Ok!");
    forgetPick(saved.count);
    if (heading.newPlaylistPending == 1)
        Combo1->addRows({name});
    heading.newPlaylistPending = 0;
}

void playlistfrm::Command8_Click()
{
    if (!isPicked()) {
        messageBox("You must select a playlist");
        return;
    }
    const QString name = heading.picked;
    if (!mayDelete(name, heading.stored))
        return;
    PlaylistChange deleted = deletePlaylist(playlists, name, heading.stored);
    while (deleted.result.ok() && !deleted.isDone) {
        if (!mayDeleteChanged())
            return;
        deleted = deletePlaylist(playlists, name, deleted.stored);
    }
    if (tellFailure(deleted.result, "The playlist was not deleted."))
        return;
    showCount(playlists.count());
    forgetPick(playlists.count());
    if (Text1->text() == name)
        beginList({}, {});
}

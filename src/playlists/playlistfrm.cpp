#include "playlists/playlistfrm.h"

#include "archive/Module1.h"
#include "controls/combo_box.h"
#include "controls/row_list.h"
#include "controls/text_box.h"
#include "files/data_folder.h"
#include "files/platform.h"
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
    connectHandlers();
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
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter})
        onKey(
            key, [this] { addSelected(); }, List1);
    onKey(
        QKeySequence("Alt+Up"), [this] { Command3->click(); }, List2);
    onKey(
        QKeySequence("Alt+Down"), [this] { Command4->click(); }, List2);
    onKey(
        QKeySequence::Delete, [this] { Command6->click(); }, List2);
}

void playlistfrm::load()
{
    playlists.playlistSlot = 0;
    songs.empty();
    unknownSongs = 0;
    newPlaylistPending = 0;
    const auto firstTitle = Module1.recTitle.begin() + 1;
    List1->addItems(alphabetical({firstTitle, firstTitle + Module1.recCount}));
    if (isMissing(playlistPath())) {
        if (const Result created = createPlaylistFile(); !created.ok())
            messageBox("The file of the playlists was not begun.\n" + created.text());
        return;
    }
    if (const Result read = readPlaylistFile(playlists); !read.ok()) {
        messageBox(read.refusal());
        return;
    }
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

// Picking a playlist
void playlistfrm::Combo1_Click()
{
    const QString name = Combo1->currentText();
    const QList<int> numbers = decodeSongList(playlists.songsOf(name));
    if (numbers.size() > SongList::most) {
        Combo1->undoPick();
        messageBox(QStringLiteral("This playlist holds %1 songs, and no more than %2 can be worked on here. "
                                  "Nothing was changed.")
                       .arg(numbers.size())
                       .arg(SongList::most));
        return;
    }
    Text1->setText(name);
    List2->clear();
    songs.empty();
    unknownSongs = 0;
    QStringList rows;
    for (const int n : numbers) {
        const QString &number = Module1.recNumber[static_cast<size_t>(n)];
        rows += Module1.recTitle[static_cast<size_t>(n)];
        songs.add(number);
        unknownSongs += number.isEmpty() ? 1 : 0;
    }
    List2->addItems(rows);
}

// ADD
void playlistfrm::Command2_Click()
{
    if (songs.songCount == SongList::most) {
        messageBox(QStringLiteral("The playlist is full: it holds %1 songs.").arg(SongList::most));
        return;
    }
    const QString title = List1->selectedText();
    int n = Module1.recCount;
    while (n > 0 && Module1.recTitle[static_cast<size_t>(n)] != title)
        n -= 1;
    List2->addItem(Module1.recTitle[static_cast<size_t>(n)] + " _" + QString::number(n));
    List2->scrollToBottom();
    songs.add(Module1.recNumber[static_cast<size_t>(n)]);
}

void playlistfrm::addSelected()
{
    if (List1->selectedRow() >= 0)
        Command2->click();
}

// Move up
void playlistfrm::Command3_Click()
{
    const int row = List2->selectedRow();
    if (row < 1)
        return;
    swapWithNext(row - 1);
    List2->selectRow(row - 1);
}

// Move down
void playlistfrm::Command4_Click()
{
    const int row = List2->selectedRow();
    if (row < 0 || row > List2->count() - 2)
        return;
    swapWithNext(row);
    List2->selectRow(row + 1);
}

void playlistfrm::swapWithNext(int row)
{
    songs.swapWithNext(row + 1);
    const QString text = List2->item(row)->text();
    List2->item(row)->setText(List2->item(row + 1)->text());
    List2->item(row + 1)->setText(text);
}

// Remove
void playlistfrm::Command6_Click()
{
    const int row = List2->selectedRow();
    if (row < 0)
        return;
    delete List2->takeItem(row);
    List2->selectRow(-1);
    songs.remove(row + 1);
}

// New playlist
void playlistfrm::Command5_Click()
{
    newPlaylistPending = 1;
    emptyEditedList();
}

void playlistfrm::emptyEditedList()
{
    List2->clear();
    Text1->clear();
    songs.empty();
    unknownSongs = 0;
}

// What a Save or a Delete rewrites is what the disk holds; if the file is gone, what was last read.
static bool readAgain(Playlists &onDisk)
{
    const Result read = readPlaylistFile(onDisk);
    if (read.ok() || read.kind == Result::Kind::Missing)
        return true;
    messageBox("Nothing was changed. " + read.refusal());
    return false;
}

static bool tellFailure(const Result &written, const QString &notDone)
{
    if (written.kind == Result::Kind::Refused)
        messageBox(notDone + ' ' + written.reason);
    else if (!written.ok())
        messageBox(notDone + " The file is as it was before.\n" + written.text());
    return !written.ok();
}

static bool canBeSaved(const QString &name)
{
    if (name.isEmpty())
        messageBox("You must type a name for the playlist", "Warning!");
    else if (isClosingToken(name))
        messageBox("A playlist cannot have this name: in the file, ]; stands for the end.");
    else if (!Module1.archiveRefusal.isEmpty()) // then no song has a number
        messageBox("The playlist was not saved. " + Module1.archiveRefusal);
    else
        return true;
    return false;
}

bool playlistfrm::mayDropUnknownSongs() const
{
    return unknownSongs == 0
        || askYesNo(QStringLiteral("%1 songs of the playlist that was picked are not in the archive, and "
                                   "saving it drops them. Do you want to save it all the same?")
                        .arg(unknownSongs));
}

// Save
void playlistfrm::Command1_Click()
{
    const QString name = Text1->text();
    Playlists onDisk = playlists;
    if (!canBeSaved(name) || !mayDropUnknownSongs() || !readAgain(onDisk))
        return;
    const int count = onDisk.count();
    const Result written = writePlaylistFile(onDisk, name, Combo1->currentText(), songs.text());
    if (tellFailure(written, "The playlist was not saved."))
        return;
    playlists = std::move(onDisk);
    showCount(count);
    messageBox("Successfully saved", "Ok!");
    Combo1->empty();
    offerPlaylists(count);
    if (newPlaylistPending == 1)
        Combo1->addRows({name});
    newPlaylistPending = 0;
}

static QString shortened(const QString &name)
{
    static constexpr qsizetype most = 100;
    return name.size() > most ? name.first(most) + QChar(0x2026) : name;
}

// Delete playlist
void playlistfrm::Command8_Click()
{
    const QString name = Combo1->currentText();
    const int picked = Combo1->currentIndex();
    if (picked < 0 || Combo1->itemText(picked) != name || !playlists.knows(name)) {
        messageBox("You must select a playlist");
        return;
    }
    if (!askYesNo(QStringLiteral("Delete the playlist %1?").arg(shortened(name))))
        return;
    Playlists onDisk = playlists;
    if (!readAgain(onDisk) || tellFailure(deletePlaylist(onDisk, name), "The playlist was not deleted."))
        return;
    playlists = std::move(onDisk);
    showCount(playlists.count());
    Combo1->empty();
    offerPlaylists(playlists.count());
    if (Text1->text() == name)
        emptyEditedList();
}

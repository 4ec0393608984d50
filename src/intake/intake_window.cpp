#include "intake/intake_window.h"

#include "audio/categories_file.h"
#include "controls/file_drop.h"
#include "controls/text_box.h"
#include "intake/coming_view.h"
#include "intake/contents_dialog.h"
#include "intake/page_view.h"
#include "text/counting.h"
#include "window/message_box.h"
#include "window/progress.h"
#include "window/undo_actions.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QFileDialog>
#include <QLabel>
#include <QPushButton>

IntakeWindow::IntakeWindow(std::function<void(int)> loadAnew)
    : LayoutWindow("intake", "Bring in songs", QSize(1000, 660))
    , loadAnew_(std::move(loadAnew))
{
    (void)readCategories();
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(makeFiles());
    layout->addLayout(makeReading());
    layout->addWidget(makeMiddle(), 1);
    layout->addLayout(makeFoot());
    makeActions();
    connectAll();
    showCounts();
    view_->setFocus();
}

QLayout *IntakeWindow::makeFiles()
{
    auto *row = new QHBoxLayout;
    auto *files = pushButton("Add files…");
    auto *folder = pushButton("Add a folder…");
    contents_ = pushButton("Contents…");
    contents_->setToolTip("Cuts the PDF of the current row into songs, as a table of contents (CSV) says");
    for (QPushButton *each : {files, folder, contents_})
        row->addWidget(each);
    row->addStretch(1);
    connect(files, &QPushButton::clicked, this,
            [this] { addPaths(QFileDialog::getOpenFileNames(this, "Add files")); });
    connect(folder, &QPushButton::clicked, this, [this] {
        const QString chosen = QFileDialog::getExistingDirectory(this, "Add a folder");
        addPaths(chosen.isEmpty() ? QStringList() : QStringList(chosen));
    });
    connect(contents_, &QPushButton::clicked, this, &IntakeWindow::addContents);
    return row;
}

static QComboBox *choice(QHBoxLayout *row, const QString &name, const QStringList &texts)
{
    auto *box = new QComboBox;
    box->addItems(texts);
    box->setObjectName(name);
    box->setAccessibleName(name);
    box->setAccessibleDescription(name); // some screen readers take the text for the name
    auto *label = new QLabel(name);
    label->setBuddy(box);
    row->addWidget(label);
    row->addWidget(box);
    return box;
}

QLayout *IntakeWindow::makeReading()
{
    auto *row = new QHBoxLayout;
    pagesOfSong_ = choice(row, "Pages of a song", {"By name", "1", "2"});
    namesAre_ = choice(row, "Names are", {"Title", "Author - Title", "Title - Author"});
    leaveOutNumbers_ = new QCheckBox("Leave out numbers in front");
    row->addWidget(leaveOutNumbers_);
    row->addStretch(1);
    return row;
}

QWidget *IntakeWindow::makeMiddle()
{
    view_ = new ComingView(table_, images_, this);
    left_ = new PageView("Left page", images_, this);
    right_ = new PageView("Right page", images_, this);
    return besideColumn(view_, {left_, right_}, {width() * 3 / 4, width() / 4});
}

QLayout *IntakeWindow::makeFoot()
{
    auto *row = new QHBoxLayout;
    count_ = new QLabel;
    count_->setObjectName("count");
    makePlaylist_ = new QCheckBox("Make a playlist of them");
    playlist_ = new TextBox(this);
    playlist_->setFrame(true);
    playlist_->setObjectName("Playlist");
    playlist_->setAccessibleName("Name of the playlist");
    playlist_->setEnabled(false);
    bringIn_ = pushButton("Bring in");
    row->addWidget(count_, 1);
    row->addWidget(makePlaylist_);
    row->addWidget(playlist_);
    row->addWidget(bringIn_);
    return row;
}

void IntakeWindow::makeActions()
{
    const auto [undo, redo] = undoActions(*table_.undoStack(), this);
    addActions({undo, redo});
    makeDeeds();
}

void IntakeWindow::connectAll()
{
    auto *drop = new FileDrop(this);
    connect(drop, &FileDrop::dropped, this, &IntakeWindow::addPaths);
    connect(pagesOfSong_, &QComboBox::activated, this, &IntakeWindow::readAnew);
    const auto readNames = [this] { table_.readNames(reading()); };
    connect(namesAre_, &QComboBox::activated, this, readNames);
    connect(leaveOutNumbers_, &QCheckBox::clicked, this, readNames);
    connect(&table_, &ComingTable::dataChanged, this, &IntakeWindow::showCounts);
    connect(&table_, &ComingTable::modelReset, this, &IntakeWindow::showCounts);
    connect(view_, &ComingView::currentSongChanged, this, &IntakeWindow::showPages);
    connect(view_, &ComingView::menuWanted, this, &IntakeWindow::openMenu);
    connect(&images_, &PageImages::noticed, this, &IntakeWindow::noteOnPage);
    connect(makePlaylist_, &QCheckBox::toggled, playlist_, &QWidget::setEnabled);
    connect(bringIn_, &QPushButton::clicked, this, &IntakeWindow::bringInTicked);
}

// What was looked through and not brought in is somebody's work.
void IntakeWindow::closeEvent(QCloseEvent *event)
{
    event->ignore();
    if (table_.undoStack()->index() < 2
        || askBeforeLoss("These songs have not been brought in. Close all the same?"))
        LayoutWindow::closeEvent(event);
}

Reading IntakeWindow::reading() const
{
    return {pagesOfSong_->currentIndex(), NamesAre(namesAre_->currentIndex()), leaveOutNumbers_->isChecked()};
}

void IntakeWindow::addPaths(const QStringList &paths)
{
    if (paths.isEmpty() || isWorkRunning())
        return;
    const FoundFiles found = filesBeside(files_, findFiles(paths, progressBox("Looking for scans")));
    if (found.isCancelled)
        return;
    if (found.count == 0) {
        messageBox(
            "There is nothing new to bring in: no pictures (JPEG, PNG, TIFF, BMP, GIF, WebP), no PDF and "
            "no MP3.");
        return;
    }
    const QStringList pdfs = pdfsIn(found);
    const QHash<QString, PdfInfo> infos =
        readPdfs(pdfs, progressBox("Reading " + counted(pdfs.size(), "PDF file")));
    if (infos.size() < pdfs.size())
        return; // cancelled
    pdfs_.insert(infos);
    files_ = filesTogether(files_, found);
    KnownSongs known;
    if (playlist_->text().isEmpty())
        playlist_->setText(carriedByFiles(QDir(found.folders.first().path).dirName()).text);
    table_.replaceSongs(table_.songs() + songsOf(found, pdfs_, reading(), known), "adding of files");
}

// From all files that were added; what was done to the rows comes back by undo.
void IntakeWindow::readAnew()
{
    KnownSongs known;
    table_.replaceSongs(songsOf(files_, pdfs_, reading(), known), "pages of a song");
}

// All rows of the current row's book give way to its songs.
void IntakeWindow::addContents()
{
    const int current = view_->currentIndex().row();
    if (current < 0)
        return;
    const QString book = table_.songs()[current].left.file;
    const auto contents = askForContents(this, book, static_cast<int>(pdfs_[book].dpi.size()));
    if (!contents)
        return;
    KnownSongs known;
    QList<int> rows;
    for (int row = 0; row < table_.rowCount(); row += 1) {
        if (table_.songs()[row].left.file == book)
            rows += row;
    }
    table_.replaceRows(rows, songsOfBook(book, pdfs_[book], *contents, known), "contents");
}

void IntakeWindow::noteOnPage(const ComingPage &page, const QString &words, bool cannotCome)
{
    const auto isThat = [&](const ComingPage &each) {
        return each.file == page.file && each.pdfPage == page.pdfPage;
    };
    for (int row = 0; row < table_.rowCount(); row += 1) {
        if (isThat(table_.songs()[row].left) || isThat(table_.songs()[row].right))
            table_.addNote(row, words, cannotCome);
    }
}

void IntakeWindow::showCounts()
{
    const int ticked = table_.tickedCount();
    count_->setText(
        table_.rowCount() == 0
            ? QStringLiteral("Drop files or folders here, or add them.")
            : QStringLiteral("%1 of %2 ticked").arg(ticked).arg(counted(table_.rowCount(), "song")));
    bringIn_->setEnabled(ticked > 0);
    showPages();
}

void IntakeWindow::showPages()
{
    const int row = view_->currentIndex().row();
    const ComingSong song = row >= 0 && row < table_.rowCount() ? table_.songs()[row] : ComingSong();
    left_->showPage(song.left);
    right_->showPage(song.right);
    contents_->setEnabled(song.left.pdfPage > 0 && pdfs_.value(song.left.file).result.ok());
}

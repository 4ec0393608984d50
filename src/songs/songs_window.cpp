#include "songs/songs_window.h"

#include "files/data_folder.h"
#include "look/look.h"
#include "songs/chosen_songs_menu.h"
#include "songs/edits.h"
#include "songs/page_pane.h"
#include "songs/song_text.h"
#include "songs/songs_view.h"
#include "text/counting.h"

#include <QBoxLayout>
#include <QClipboard>
#include <QComboBox>
#include <QCoreApplication>
#include <QEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QShortcut>

#include <chrono>
#include <utility>

using namespace std::chrono_literals;

SongsWindow::SongsWindow(Edits &edits, Doors doors, const QList<QAction *> &undoAndRedo)
    : LayoutWindow("songs", "Songs", QSize(920, 640))
    , edits_(edits)
    , doors_(std::move(doors))
    , table_(edits)
{
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(makeHead());
    layout->addWidget(makeMiddle(), 1);
    layout->addLayout(makeFoot());
    addActions(undoAndRedo);
    readDisk();
    connectAll();
    showCounts();
}

// A label before a control, which bears the same name.
static QLabel *labelOf(QWidget *control, const QString &name)
{
    auto *label = new QLabel(name);
    label->setBuddy(control);
    control->setObjectName(name);
    control->setAccessibleName(name);
    return label;
}

QLayout *SongsWindow::makeHead()
{
    auto *row = new QHBoxLayout;
    find_ = new QLineEdit;
    find_->setClearButtonEnabled(true);
    find_->setToolTip("Words of title, author, tags or category, or a number. \"In quotes\": as it stands.");
    find_->installEventFilter(this);
    find_->setMinimumWidth(find_->fontMetrics().averageCharWidth() * 15);
    show_ = new QComboBox;
    show_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    show_->setMinimumContentsLength(12);
    show_->setAccessibleDescription("Which songs are shown");
    row->addWidget(labelOf(find_, "Find"));
    row->addWidget(find_, 3);
    row->addWidget(labelOf(show_, "Show"));
    row->addWidget(show_, 2);
    return row;
}

QWidget *SongsWindow::makeMiddle()
{
    songs_ = new SongsView(table_, this);
    left_ = new PagePane("Left page", this);
    right_ = new PagePane("Right page", this);
    return besideColumn(songs_, {left_, right_}, {width() * 5 / 6, width() / 6});
}

QLayout *SongsWindow::makeFoot()
{
    auto *row = new QHBoxLayout;
    count_ = new QLabel;
    count_->setObjectName("count");
    failures_ = new QLabel;
    failures_->setObjectName("failures");
    failures_->setTextFormat(Qt::PlainText);
    failures_->setWordWrap(true);
    unsaved_ = new QLabel;
    unsaved_->setObjectName("unsaved");
    save_ = pushButton("Save");
    row->addWidget(count_);
    row->addWidget(failures_, 1);
    row->addWidget(unsaved_);
    row->addWidget(save_);
    return row;
}

void SongsWindow::connectAll()
{
    connect(find_, &QLineEdit::textChanged, this, &SongsWindow::find);
    connect(show_, &QComboBox::activated, this, &SongsWindow::choose);
    connect(songs_, &SongsView::songEntered, this, doors_.showSong);
    connect(songs_, &SongsView::currentSongChanged, this, [this] { pagesSoon_.start(40ms); });
    connect(songs_, &SongsView::leftUpwards, find_, qOverload<>(&QWidget::setFocus));
    connect(songs_, &SongsView::typed, this, [this](QKeyEvent *event) {
        find_->setFocus();
        find_->deselect();
        QCoreApplication::sendEvent(find_, event);
    });
    connect(songs_, &SongsView::menuWanted, this, &SongsWindow::openMenu);
    connect(songs_, &SongsView::copyWanted, this, &SongsWindow::copyChosen);
    connect(&pagesSoon_, &QTimer::timeout, this, &SongsWindow::showPages);
    connect(&table_, &SongTable::modelReset, this, &SongsWindow::showCounts);
    connect(&edits_, &Edits::changed, this, &SongsWindow::showCounts);
    connect(&edits_, &Edits::replaced, this, &SongsWindow::showCounts);
    connect(save_, &QPushButton::clicked, this, doors_.save);
    connect(new QShortcut(QKeySequence::Save, this), &QShortcut::activated, save_, &QPushButton::click);
    pagesSoon_.setSingleShot(true);
}

void SongsWindow::startFinding()
{
    find_->setFocus();
    find_->selectAll();
}

// What other programs and windows have done shows when this one becomes the active one again.
bool SongsWindow::event(QEvent *event)
{
    if (event->type() == QEvent::WindowDeactivate)
        wasLeft_ = true;
    if (event->type() == QEvent::WindowActivate && std::exchange(wasLeft_, false)) {
        readDisk();
        pagesSoon_.start(0ms);
    }
    return LayoutWindow::event(event);
}

void SongsWindow::readDisk()
{
    table_.readDisk();
    failures_->setText(table_.disk().failures().join(u' '));
    QStringList names;
    const QList<SongChoice> choices = choicesOf(table_.disk());
    for (const SongChoice &choice : choices)
        names += nameOf(choice);
    show_->clear();
    show_->addItems(names);
    show_->setCurrentIndex(static_cast<int>(choices.indexOf(table_.choice())));
}

void SongsWindow::showAll(SongChoice::Kind kind)
{
    find_->clear();
    show_->setCurrentIndex(kind);
    choose(kind);
}

// A playlist comes in its own order; after it, the others stand by number again.
void SongsWindow::choose(int row)
{
    const bool wasInPlaylistsOrder = songs_->horizontalHeader()->sortIndicatorSection() < 0;
    const SongChoice choice = choicesOf(table_.disk())[row];
    table_.choose(choice);
    if (choice.kind == SongChoice::OfPlaylist)
        songs_->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    else if (wasInPlaylistsOrder)
        songs_->horizontalHeader()->setSortIndicator(0, Qt::AscendingOrder);
}

// Where the current song is not found, the first that is becomes the current one.
void SongsWindow::find()
{
    const int before = songs_->currentSong();
    table_.find(find_->text());
    if (!table_.query().isEmpty() && table_.rowCount() > 0 && table_.rowOf(before) < 0)
        songs_->goToRow(0);
}

bool SongsWindow::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != find_ || event->type() != QEvent::KeyPress)
        return LayoutWindow::eventFilter(watched, event);
    switch (static_cast<QKeyEvent *>(event)->key()) {
    case Qt::Key_Down:
        enterTable();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (songs_->currentSong() > 0)
            doors_.showSong(songs_->currentSong());
        return true;
    default:
        return false;
    }
}

void SongsWindow::enterTable()
{
    songs_->setFocus();
    if (songs_->currentSong() == 0 && table_.rowCount() > 0)
        songs_->goToRow(0);
}

void SongsWindow::showCounts()
{
    static const QLocale english(QLocale::English);
    count_->setText(QStringLiteral("%1 of %2")
                        .arg(english.toString(table_.rowCount()), counted(Module1.recCount, "song")));
    const qsizetype unsaved = edits_.unsavedRecords().size();
    unsaved_->setText(unsaved == 0 ? QString() : counted(unsaved, "change") + " not saved");
    save_->setEnabled(unsaved > 0);
}

void SongsWindow::showPages()
{
    const int n = songs_->currentSong();
    left_->showPage(n == 0 ? QString() : pagePath(n, Page::Left));
    right_->showPage(n == 0 ? QString() : pagePath(n, Page::Right));
}

void SongsWindow::copyChosen()
{
    const QList<int> songs = songs_->chosenSongs();
    if (!songs.isEmpty())
        QGuiApplication::clipboard()->setText(spreadsheetText(songs, table_.disk()));
}

void SongsWindow::openMenu(const QPoint &placeOnScreen)
{
    auto *menu = new ChosenSongsMenu(songs_->chosenSongs(), edits_, table_, this);
    connect(menu, &ChosenSongsMenu::addToPlaylistWanted, this, doors_.addToPlaylist);
    connect(menu, &ChosenSongsMenu::emptyingWanted, this, [this](const QList<int> &songs) {
        doors_.emptyNumbers(songs);
        readDisk();
        showPages();
    });
    connect(menu, &ChosenSongsMenu::copyWanted, this, &SongsWindow::copyChosen);
    connect(menu, &ChosenSongsMenu::diskChanged, this, &SongsWindow::readDisk);
    menu->popup(placeOnScreen);
}

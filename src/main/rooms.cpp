#include "main/rooms.h"

#include "archive/archive_operations.h"
#include "audio/categories_file.h"
#include "audio/recording.h"
#include "files/data_folder.h"
#include "help/about.h"
#include "help/chapters.h"
#include "intake/dropped_file.h"
#include "window/message_box.h"

#include <QAction>
#include <QFileInfo>
#include <QTimer>

Rooms::Rooms()
    : sinistra(Page::Left, [this](int record, const QList<Page> &pages) { storedPages(record, pages); })
    , destra(Page::Right, [this](int record, const QList<Page> &pages) { storedPages(record, pages); })
    , mp3_([this](int record, int category) { storedRecording(record, category); })
    , merging_([this] { form1.reload(); })
    , Premerge_([this] { openMerging(); })
    , undoing_(undoActions(edits.stack(), &actions_))
    , form1(doors(), edits, undoing_, menus())
{
}

Rooms::~Rooms()
{
    delete versionsWindow_;
    delete songs_;
    delete categories_;
    delete intake_;
    delete check_;
    delete manual_;
    delete standWindow_;
}

Form1::Doors Rooms::doors()
{
    return {[this] { sinistra.show(); },
            [this] { destra.show(); },
            [this] { mp3_.show(); },
            [this] { playlistfrm_.show(); },
            [this] { midifrm_.show(); },
            [this] { Premerge_.show(); },
            [this](const QStringList &paths, std::optional<Page> page) { dropped(paths, page); },
            [this](bool wantsUnsaved) { leave(wantsUnsaved); }};
}

QList<Form1::Menu> Rooms::menus()
{
    QAction *find = entry("Find a song…", &Rooms::findSong, QKeySequence::Find);
    return {
        {"Edit", {undoing_.undo, undoing_.redo, nullptr, find}},
        {"Archive",
         {entry("Bring in songs…", &Rooms::openIntake, QKeySequence("Ctrl+I")),
          entry("Categories…", &Rooms::openCategories), nullptr,
          entry("Earlier versions…", &Rooms::openVersions), entry("Check the archive…", &Rooms::openCheck),
          entry("Copy to the stand…", &Rooms::openStand)}},
        {"Help",
         {entry("Manual", &Rooms::openManual, QKeySequence::HelpContents),
          entry("About Tessaline", &Rooms::showAbout)}}};
}

// An entry of a menu, which outlives the main window; its key works in every window.
QAction *Rooms::entry(const QString &text, void (Rooms::*open)(), const QKeySequence &key)
{
    auto *action = new QAction(text, &actions_);
    action->setShortcut(key);
    action->setShortcutContext(Qt::ApplicationShortcut);
    QObject::connect(action, &QAction::triggered, &actions_, [this, open] { (this->*open)(); });
    return action;
}

void Rooms::start()
{
    static constexpr int afterShowing = 100; // milliseconds
    history = std::make_unique<History>(edits);
    form1.show();
    QTimer::singleShot(afterShowing, &actions_, [this] { beginHistory(); });
}

void Rooms::beginHistory()
{
    if (!history)
        history = std::make_unique<History>(edits);
    if (const int song = history->begin())
        form1.showSong(song);
}

void Rooms::leave(bool wantsUnsaved)
{
    if (history)
        history->end(wantsUnsaved);
}

void Rooms::storedPages(int record, const QList<Page> &pages)
{
    QStringList files;
    for (const Page page : pages)
        files += QFileInfo(pagePath(record, page)).fileName();
    if (history)
        history->stored(pages.size() > 1 ? "pages" : "page", record, files);
}

// The category goes to the song for which the window was opened, the recording to the one on display.
void Rooms::storedRecording(int record, int category)
{
    edits.stack().beginMacro(QStringLiteral("recording of %1").arg(Module1.pageRecord));
    edits.set(Field::Category, {record}, {QString::number(category)});
    if (history)
        history->stored("recording", Module1.pageRecord,
                        {"audio/" + QFileInfo(recordingPath(Module1.pageRecord)).fileName()});
    edits.stack().endMacro();
}

IntakeWindow *Rooms::intake()
{
    return showTheOne(intake_, [this] { return new IntakeWindow([this](int n) { form1.reload(n); }); });
}

void Rooms::openIntake()
{
    intake();
}

void Rooms::dropped(const QStringList &paths, std::optional<Page> page)
{
    const int record = Module1.pageRecord;
    const Dropped meaning = meaningOf(paths, page, record);
    if (meaning == Dropped::Songs)
        return intake()->addPaths(paths);
    const bool isPage = meaning == Dropped::Page;
    const Result stored =
        isPage ? storeDroppedPage(record, *page, paths[0]) : storeRecording(record, paths[0]);
    if (!stored.ok())
        return messageBox(QStringLiteral("The %1 of title %2 was not stored; it is as it was before.\n")
                              .arg(isPage ? "page" : "recording")
                              .arg(record)
                          + stored.text());
    if (isPage)
        storedPages(record, {*page});
    else if (history)
        history->stored("recording", record, {"audio/" + QFileInfo(recordingPath(record)).fileName()});
    form1.showSong(record);
}

static bool mayForgetUnsaved()
{
    return !hasUnsavedChanges()
        || askBeforeLoss(
            "There are changes that have not been saved, and they would be lost. Do you want to go "
            "on all the same?");
}

void Rooms::openVersions()
{
    if (!history)
        beginHistory();
    showTheOne(versionsWindow_, [this] {
        return new EarlierVersions(
            {history->versions, edits, mayForgetUnsaved, [this] { form1.reload(); }, [this] { showDisk(); }});
    });
}

void Rooms::showDisk()
{
    form1.showSong(Module1.pageRecord);
    static_cast<void>(readCategories()); // whose failures are told where the names are used
    mp3_.showNames();
    if (songs_)
        songs_->readDisk();
}

void Rooms::emptyNumbers(const QList<int> &songs)
{
    if (!history)
        beginHistory();
    history->emptyNumbers(songs);
}

void Rooms::findSong()
{
    const SongsWindow::Doors doors{[this](int n) { form1.showSong(n); }, [this] { return form1.save(); },
                                   [this](const QList<int> &songs) { playlistfrm_.addSongs(songs); },
                                   [this](const QList<int> &songs) { emptyNumbers(songs); }};
    const auto make = [&] { return new SongsWindow(edits, doors, {undoing_.undo, undoing_.redo}); };
    showTheOne(songs_, make)->startFinding();
}

void Rooms::openCategories()
{
    showTheOne(categories_, [this] { return new CategoriesWindow([this] { namesChanged(); }); });
}

// The categories have other names.
void Rooms::namesChanged()
{
    mp3_.showNames();
    if (songs_)
        songs_->readDisk();
}

void Rooms::openCheck()
{
    const CheckWindow::Doors doors{[this](int n) { form1.showSong(n); },
                                   [this] { showSongs(SongChoice::WithoutTitle); },
                                   [this] { showSongs(SongChoice::SameTitle); },
                                   [this] { playlistfrm_.show(); }, [this] { namesChanged(); }};
    showTheOne(check_, [&] { return new CheckWindow(doors); })->check();
}

void Rooms::openStand()
{
    showTheOne(standWindow_, [this] { return new StandWindow(stand_); })->look();
}

void Rooms::showSongs(SongChoice::Kind kind)
{
    findSong();
    songs_->showAll(kind);
}

// At the chapter of the window that asks; from the manual itself it stays where it is.
void Rooms::openManual()
{
    const QWidget *asking = windowInFront();
    if (manual_ && asking == manual_)
        return manual_->comeForward();
    showTheOne(manual_, [] {
        return new ManualWindow;
    })->showChapter(chapterOf(asking ? asking->objectName() : QString()));
}

void Rooms::showAbout()
{
    messageBox(aboutText(), "About Tessaline");
}

// An open list would only come forward, with the songs of the source before.
void Rooms::openMerging()
{
    merging_.unload();
    merging_.show();
}

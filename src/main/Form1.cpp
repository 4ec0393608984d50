#include "main/Form1.h"

#include "archive/archive_operations.h"
#include "controls/file_drop.h"
#include "controls/image_frame.h"
#include "controls/recording_mark.h"
#include "controls/scroll_bar.h"
#include "controls/text_box.h"
#include "files/data_folder.h"
#include "files/platform.h"
#include "window/message_box.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QFileInfo>
#include <QLabel>
#include <QLayout>
#include <QMenuBar>
#include <QPushButton>
#include <QUrl>
#include <QWheelEvent>

Form1::Form1(Doors doors, Edits &edits, UndoActions undoing, QList<Menu> menus)
    : Form({"Form1", "Tessaline 5.0", 11010, 9360, QPoint(450, 750)})
    , show_(std::move(doors))
    , edits_(edits)
    , undoing_(undoing)
    , menus_(std::move(menus))
{
}

void Form1::showSong(int n)
{
    show();
    showAnew(n);
}

void Form1::reload(int n)
{
    forgetArchive();
    unload();
    show();
    if (n > 0)
        showAnew(n);
}

void Form1::build(ControlMaker make)
{
    makeFields(make);
    makePages(make);
    makeButtons(make);
    makeOpenable();
    makeMenus();
    setTabOrder({Text2, Command1, Text1, Text3, Text4, Command3, Command4, VScroll1, Command5, Command2,
                 Command6, Image1, Image2, Picture1});
    connectKeys();
}

void Form1::makeFields(ControlMaker make)
{
    const QFont font = italic(verdana(14.25));
    Text2 = make.textBox("Text2", "Title", {120, 120, 10215, 495}, font, "Title");
    Text3 = make.textBox("Text3", "Author", {120, 1080, 10215, 495}, font, "Author");
    Text4 = make.textBox("Text4", "Tags", {120, 2040, 10215, 495}, font,
                         "Tags: add more words separated by spaces. Do not use accents or commas.");
    make.line("Line1(2)", 120, 10320, 720);
    make.line("Line1(1)", 120, 10320, 1680);
    make.line("Line1(0)", 120, 10320, 2640);
    Text1 = make.textBox("Text1", "Record", {120, 2760, 10215, 615}, verdana(24));
    Text1->setAlignment(Qt::AlignCenter);
    Text1->setReadOnly(true);
    on(Text2, &QLineEdit::textChanged, [this] { writeThrough(Field::Title, Text2); });
    on(Text3, &QLineEdit::textChanged, [this] { writeThrough(Field::Author, Text3); });
    on(Text4, &QLineEdit::textChanged, [this] { writeThrough(Field::Tags, Text4); });
    for (TextBox *box : {Text2, Text3, Text4})
        box->leaveUndoTo(undoing_.undo, undoing_.redo);
    on(&edits_, &Edits::changed, [this](const QList<int> &records) { showEdited(records); });
    on(&edits_, &Edits::steppedTo, [this](const QList<int> &records) { goTo(records); });
}

void Form1::makePages(ControlMaker make)
{
    Image1 = make.image("Image1", "Left page", {120, 3480, 4935, 4215});
    Image2 = make.image("Image2", "Right page", {5400, 3480, 4935, 4215});
    Command3 = make.button("Command3", "Left", {120, 7800, 4935, 495}, "Enter the left paper");
    Command4 = make.button("Command4", "Right", {5400, 7800, 4935, 495}, "Enter the right paper");
}

// In the system's own program for such files.
static void openFile(const QString &path)
{
    if (!path.isEmpty()
        && !QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(path).absoluteFilePath())))
        messageBox("There is no program that opens " + shownPath(path) + '.');
}

// Pages and recording open by a double click or Enter, and take files that are dropped.
void Form1::makeOpenable()
{
    for (const auto &[frame, page] : {std::pair(Image1, Page::Left), {Image2, Page::Right}}) {
        frame->setFocusPolicy(Qt::StrongFocus);
        on(frame, &Openable::opened, [frame = frame] { openFile(frame->path()); });
        on(new FileDrop(frame), &FileDrop::dropped,
           [this, page = page](const QStringList &paths) { show_.dropped(paths, page); });
    }
    Picture1->setFocusPolicy(Qt::StrongFocus);
    on(Picture1, &Openable::opened, [] { openFile(recordingPath(Module1.pageRecord)); });
    on(new FileDrop(window()), &FileDrop::dropped,
       [this](const QStringList &paths) { show_.dropped(paths, {}); });
}

void Form1::makeButtons(ControlMaker make)
{
    Command2 = make.button("Command2", "Mp3", {120, 8400, 1095, 855});
    Picture1 =
        make.add<RecordingMark>("Picture1", "This song has a recording", {1440, 8400, 840, 855}, verdana(12));
    Picture1->hide();
    Label6 = make.label("Label6", {}, {2400, 8640, 5535, 615}, verdana(15.75), Qt::AlignHCenter);
    Command1 = make.button("Command1", "Save", {8040, 8400, 1095, 855});
    Command5 = make.button("Command5", "Add", {9240, 8400, 1095, 855}, "Aggiungi nuovo titolo");
    VScroll1 = make.verticalScrollBar("VScroll1", "Record", {10440, 120, 495, 9135});
    VScroll1->setRange(1, Module1State::lastRecord);
    Command6 = make.button("Command6", "SALVA CSV", {3720, 5040, 3375, 375});
    Command6->hide();
    on(VScroll1, &QScrollBar::valueChanged, [this] { showRecord(); });
    on(Command1, &QPushButton::clicked, [this] { Command1_Click(); });
    on(Command2, &QPushButton::clicked, [this] { Command2_Click(); });
    on(Command3, &QPushButton::clicked, [this] { show_.sinistra(); });
    on(Command4, &QPushButton::clicked, [this] { show_.destra(); });
    on(Command5, &QPushButton::clicked, [this] { Command5_Click(); });
    on(Command6, &QPushButton::clicked, [this] { Command6_Click(); });
}

void Form1::makeMenus()
{
    window()->layout()->setMenuBar(new QMenuBar(window()));
    QMenu *edit = makeMenu("Work");
    edit->setObjectName("edit");
    const auto entry = [&](const QString &name, const QString &text, const QKeySequence &key) {
        QAction *action = edit->addAction(text);
        action->setObjectName(name);
        action->setShortcut(key);
        return action;
    };
    on(entry("playlist", "Playlist Manager", QKeySequence("Ctrl+P")), &QAction::triggered,
       [this] { show_.playlistfrm(); });
    on(entry("midi", "Midi device", QKeySequence("Ctrl+D")), &QAction::triggered,
       [this] { show_.midifrm(); });
    on(entry("merging", "Merging", QKeySequence("Ctrl+G")), &QAction::triggered,
       [this] { show_.Premerge(); });
    on(entry("chiudi", "Exit", {}), &QAction::triggered, [this] { chiudi_Click(); });
    for (const Menu &menu : menus_) {
        if (menu.entries.isEmpty())
            continue;
        QMenu *made = makeMenu(menu.title);
        for (QAction *action : menu.entries) {
            if (action)
                made->addAction(action);
            else
                made->addSeparator();
        }
    }
}

// Alt and the first letter of its title open it.
QMenu *Form1::makeMenu(const QString &title)
{
    auto *bar = window()->findChild<QMenuBar *>();
    QMenu *menu = bar->addMenu(title);
    onKey(QKeySequence("Alt+" + title.first(1)), [bar, menu] { bar->setActiveAction(menu->menuAction()); });
    return menu;
}

void Form1::connectKeys()
{
    onKey(QKeySequence::Save, [this] { Command1->click(); });
    onKey(QKeySequence::New, [this] { Command5->click(); });
    onKey(QKeySequence("Ctrl+L"), [this] { Command3->click(); });
    onKey(QKeySequence("Ctrl+R"), [this] { Command4->click(); });
    onKey(QKeySequence("Ctrl+M"), [this] { Command2->click(); });
    onKey(QKeySequence("Ctrl+Shift+E"), [this] { Command6->setVisible(Command6->isHidden()); });
    onKey(Qt::Key_PageUp, [this] { VScroll1->step(-1); });
    onKey(Qt::Key_PageDown, [this] { VScroll1->step(1); });
}

// The wheel browses wherever in the window it is turned.
bool Form1::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == window() && event->type() == QEvent::Wheel)
        return QCoreApplication::sendEvent(VScroll1, event);
    if (watched == window() && event->type() == QEvent::WindowActivate && Module1.pageRecord > 0)
        lookAgain();
    return Form::eventFilter(watched, event);
}

void Form1::load()
{
    const bool isRead = readOrBegin();
    edits_.loaded();
    if (isRead)
        showArchive(Module1.recCount);
}

void Form1::showArchive(int record)
{
    showCount();
    VScroll1->setMaximum(qMin(Module1.recCount + 1, Module1State::lastRecord));
    showAnew(qMax(record, 1));
}

void Form1::showAnew(int record)
{
    if (VScroll1->value() == record)
        showRecord();
    else
        VScroll1->setValue(record);
}

void Form1::showCount()
{
    Label6->setText(QStringLiteral("There are %1 titles").arg(Module1.recCount));
}

void Form1::showRecord()
{
    const int n = VScroll1->value();
    edits_.rest();
    Module1.midiRecord = n;
    Text1->setText(QString::number(n));
    showTexts();
    Module1.pageRecord = n;
    Image1->showFile(pagePath(n, Page::Left));
    Image2->showFile(pagePath(n, Page::Right));
    Picture1->setVisible(QFileInfo::exists(recordingPath(n)));
}

// The pages and the recording may have been stored, or taken away, while another window was in front.
void Form1::lookAgain()
{
    Image1->showFileIfOther(pagePath(Module1.pageRecord, Page::Left));
    Image2->showFileIfOther(pagePath(Module1.pageRecord, Page::Right));
    Picture1->setVisible(QFileInfo::exists(recordingPath(Module1.pageRecord)));
}

// A long text shows its beginning. A box that has the text already keeps its caret.
void Form1::showTexts()
{
    const auto n = static_cast<size_t>(VScroll1->value());
    const std::pair<TextBox *, const QString &> boxes[] = {
        {Text2, Module1.recTitle[n]}, {Text3, Module1.recAuthor[n]}, {Text4, Module1.recTags[n]}};
    for (const auto &[box, text] : boxes) {
        if (box->text() == text)
            continue;
        box->setText(text);
        box->home(false);
    }
}

// Somebody else may have edited the record on display, or added some.
void Form1::showEdited(const QList<int> &records)
{
    VScroll1->setMaximum(qMax(VScroll1->maximum(), Module1.recCount));
    if (records.contains(VScroll1->value()))
        showTexts();
}

// Shows what an undo or a redo has changed.
void Form1::goTo(const QList<int> &records)
{
    showAnew(records.contains(VScroll1->value()) ? VScroll1->value() : records.first());
}

// Every keystroke lands in the record on display.
void Form1::writeThrough(Field field, const TextBox *box)
{
    edits_.type(field, VScroll1->value(), box->text());
}

// Mp3
void Form1::Command2_Click()
{
    Module1.audioRecord = VScroll1->value();
    show_.mp3();
}

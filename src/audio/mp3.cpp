#include "audio/mp3.h"

#include "archive/Module1.h"
#include "audio/categories_file.h"
#include "audio/recording.h"
#include "browse/file_list.h"
#include "browse/folder_list.h"
#include "controls/button.h"
#include "controls/path_label.h"
#include "window/message_box.h"

static constexpr int buttonsInColumn = 11;

mp3::mp3(std::function<void(int record, int category)> setCategory)
    : Form({"mp3", "Mp3 Manager", 13800, 7650, QPoint(2520, 480)})
    , setCategory_(std::move(setCategory))
{
}

void mp3::build(ControlMaker make)
{
    const QFont font = bold(verdana(12));
    make.label("Label2", "Connects mp3 files at the musical score", {120, 360, 13575, 495}, font,
               Qt::AlignHCenter);
    make.label("Label3", "Select category", {9120, 840, 4575, 375}, font, Qt::AlignHCenter);
    Dir1 = make.add<FolderList>("Dir1", "Folders", {120, 1320, 3615, 5190}, font);
    File1 = make.add<FileList>("File1", "Recordings", {3840, 1320, 5055, 5220}, font);
    File1->setPattern("*.mp3");
    Label1 = make.add<PathLabel>("Label1", {}, {9120, 6600, 4575, 375}, msSansSerif(8.25));
    auto *Command1 = make.button("Command1", "Close", {9120, 7080, 4575, 495}, {}, verdana(9.75));
    setTabOrder({Command1, Dir1, File1});
    makeCategoryButtons(make);

    on(Dir1, &FolderList::folderChanged, [this](const QString &path) { File1->setPath(path); });
    on(File1, &FileList::fileClicked, [this] { File1_Click(); });
    on(Command1, &QPushButton::clicked, [this] { hide(); });
}

void mp3::makeCategoryButtons(ControlMaker make)
{
    QWidget *previous = File1;
    for (int index = 1; index <= categoryCount; index += 1) {
        const int column = (index - 1) / buttonsInColumn;
        const int row = (index - 1) % buttonsInColumn;
        auto *button = make.add<Button>(indexed("Command3", index), {},
                                        {9120 + 1560 * column, 1320 + 480 * row, 1455, 375},
                                        row == 0 ? msSansSerif(9.75) : verdana(9.75));
        button->setAccessibleDescription(QStringLiteral("Category %1").arg(index));
        on(button, &QPushButton::clicked, [this, index] { Command3_Click(index); });
        QWidget::setTabOrder(previous, button);
        previous = button;
        Command3[static_cast<size_t>(index)] = button;
    }
}

void mp3::load()
{
    const Result read = readCategories();
    showNames();
    if (!read.ok())
        messageBox("A category without a name is shown by its number.\n" + read.text()
                   + "\nThe names can be given in the main window's menu \"Archive\", \"Categories…\".");
}

void mp3::showNames()
{
    if (!isLoaded())
        return;
    for (size_t k = 1; k <= categoryCount; k += 1) {
        const QString &name = Module1.categoryName[k];
        Command3[k]->showName(name);
        Command3[k]->setAccessibleName(name.isEmpty() ? Command3[k]->accessibleDescription() : name);
    }
}

void mp3::File1_Click()
{
    Label1->showPath(File1->selectedPath());
}

// A category
void mp3::Command3_Click(int index)
{
    const QString source = File1->selectedPath();
    if (source.isEmpty()) {
        messageBox("You must select an mp3 file!");
        return;
    }
    const Result stored = storeRecording(Module1.pageRecord, source);
    if (!stored.ok()) {
        messageBox("Neither the category nor the recording was stored; both are as they were before.\n"
                   + stored.text());
        return;
    }
    setCategory_(Module1.audioRecord, index);
    hide();
}

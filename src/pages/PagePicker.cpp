#include "pages/PagePicker.h"

#include "archive/Module1.h"
#include "browse/file_list.h"
#include "browse/folder_list.h"
#include "controls/path_label.h"
#include "pages/page_preview.h"
#include "window/message_box.h"

#include <QPushButton>

// What tells the two windows apart.
struct PickerTable {
    FormShape window;
    QString side;
    int folderListHeight;
    int fileListHeight;
    int buttonTop;
    int pathTop;
    int pathHeight;
};

static PickerTable tableOf(Page page)
{
    if (page == Page::Left)
        return {{"sinistra", "Left page", 6795, 5835, QPoint(180, 600)}, "left", 3990, 3870, 4680, 5400, 375};
    return {{"destra", "Right page", 6855, 5610, QPoint(12030, 465)}, "right", 3690, 3600, 4320, 5040, 495};
}

PagePicker::PagePicker(Page page, std::function<void(int record, const QList<Page> &pages)> stored)
    : Form(tableOf(page).window)
    , page_(page)
    , stored_(std::move(stored))
{
}

void PagePicker::build(ControlMaker make)
{
    const PickerTable own = tableOf(page_);
    const QFont font = verdana(12);
    Label2 = make.label("Label2", QStringLiteral("Select %1 page").arg(own.side), {120, 120, 6615, 495}, font,
                        Qt::AlignHCenter);
    Dir1 = make.add<FolderList>("Dir1", "Folders", {120, 600, 3375, own.folderListHeight}, font);
    File1 = make.add<FileList>("File1", "Pages", {3600, 600, 3135, own.fileListHeight}, font);
    File1->setPattern("*.jpg");
    auto *Command1 = make.button("Command1", "ESC", {120, own.buttonTop, 3375, 615});
    auto *Command2 = make.button("Command2", "Ok", {3600, own.buttonTop, 3135, 615});
    Label1 = make.add<PathLabel>("Label1", {}, {120, own.pathTop, 6615, own.pathHeight}, font);
    Label1->setText("Label1");
    preview_ = new PagePreview(window());
    setTabOrder({File1, Dir1, Command1, Command2});

    on(Dir1, &FolderList::folderChanged, [this](const QString &path) { File1->setPath(path); });
    on(File1, &FileList::fileClicked, [this] { File1_Click(); });
    on(Command1, &QPushButton::clicked, [this] { hide(); });
    on(Command2, &QPushButton::clicked, [this] { Command2_Click(); });
}

void PagePicker::load()
{
    if (!selectedFile.isEmpty()) // from before the close box was used
        preview_->showFile(selectedFile);
    if (page_ == Page::Right)
        Label2->setText(QString::number(Module1.pageRecord));
}

void PagePicker::File1_Click()
{
    selectedFile = File1->selectedPath();
    Label1->showPath(selectedFile);
    preview_->showFile(selectedFile);
}

// Ok
void PagePicker::Command2_Click()
{
    if (selectedFile.isEmpty()) {
        messageBox("You must select a jpg file!");
        return;
    }
    tell(Module1.pageRecord, storePage(Module1.pageRecord, page_, selectedFile));
}

void PagePicker::tell(int record, const PageStored &stored)
{
    const QString side = tableOf(page_).side;
    if (stored.page.ok())
        stored_(record,
                page_ == Page::Left && stored.emptySheet.ok() ? QList{Page::Left, Page::Right}
                                                              : QList{page_});
    if (!stored.page.ok()) {
        messageBox(
            QStringLiteral("The %1 page of title %2 was not stored; its pages are as they were before.\n")
                .arg(side)
                .arg(record)
            + stored.page.text());
    } else if (!stored.emptySheet.ok()) {
        messageBox(QStringLiteral("The left page of title %1 was stored. Its right page is as it was before: "
                                  "the empty page could not be put there.\n")
                       .arg(record)
                   + stored.emptySheet.text());
    } else {
        messageBox("Perfect! The file was moved to the music folder.");
        hide();
    }
}

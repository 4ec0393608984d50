#include "merge/Premerge.h"

#include "archive/Module1.h"
#include "browse/drive_list.h"
#include "browse/file_list.h"
#include "browse/folder_list.h"
#include "files/platform.h"
#include "window/message_box.h"

#include <QLabel>
#include <QPushButton>

Premerge::Premerge(std::function<void()> openMerging)
    : Form({"Premerge", "Preparation", 8535, 9300})
    , openMerging_(std::move(openMerging))
{
}

void Premerge::build(ControlMaker make)
{
    const QFont font = verdana(15.75);
    make.label("Label1", "Select the Orvanne which corresponds to the archive you want to absorb.",
               {120, 360, 8175, 855}, font, Qt::AlignHCenter);
    Drive1 = make.add<DriveList>("Drive1", "Drive", {120, 1560, 8295, 495}, font);
    Drive1->setAccessibleDescription(
        Drive1->accessibleName()); // a screen reader may take the text for the name
    Dir1 = make.add<FolderList>("Dir1", "Folders", {120, 2160, 8295, 4140}, font);
    File1 = make.add<FileList>("File1", "Start pages", {120, 6360, 8295, 1965}, font);
    File1->setPattern("*.html");
    auto *Command2 = make.button("Command2", "ESC", {120, 8520, 3975, 615});
    Command1 =
        make.button("Command1", "Ok", {4440, 8520, 3975, 615}, "To continue, you must select Orvanne.");
    Command1->setEnabled(false);
    Label2 = make.label("Label2", {}, {360, 10200, 3135, 255});
    Label2->hide();
    on(Drive1, &DriveList::driveChosen, [this] { Drive1_Change(); });
    on(Dir1, &FolderList::folderChanged, [this] { File1->setPath(Dir1->path()); });
    on(File1, &FileList::fileClicked, [this] { Command1->setEnabled(true); });
    on(Command1, &QPushButton::clicked, [this] { Command1_Click(); });
    on(Command2, &QPushButton::clicked, [this] { unload(); });
    setTabOrder({Drive1, Dir1, Command1, File1, Command2});
}

void Premerge::Drive1_Change()
{
    const QString folder = Drive1->currentFolder();
    if (Dir1->setPath(folder))
        return;
    const QString drive = Drive1->currentText();
    Drive1->showDriveOf(Dir1->path());
    messageBox(QStringLiteral("%1 cannot be read. The lists stay on %2.\n%3.")
                   .arg(drive, Dir1->path(), obstacleTo(folder)));
}

// Ok
void Premerge::Command1_Click()
{
    Module1.mergeSourcePath = File1->path();
    Label2->setText(Module1.mergeSourcePath);
    openMerging_();
    unload();
}

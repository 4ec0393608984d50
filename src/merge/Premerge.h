#pragma once

#include "window/form.h"

#include <functional>

class DriveList;
class FileList;
class FolderList;

// The first window of a merge: a person walks to the top folder of another installation, and clicks its
// start page to show that this is one.
class Premerge : public Form
{
    Q_OBJECT
public:
    // `openMerging` shows the songs of the installation in mergeSourcePath, read anew.
    explicit Premerge(std::function<void()> openMerging);

protected:
    void build(ControlMaker make) override;

private:
    void Drive1_Change(); // another drive is chosen
    void Command1_Click(); // Ok

    DriveList *Drive1 = nullptr; // Drive
    FolderList *Dir1 = nullptr; // Folders
    FileList *File1 = nullptr; // Start pages
    QPushButton *Command1 = nullptr; // Ok
    QLabel *Label2 = nullptr; // hidden: the folder last chosen

    const std::function<void()> openMerging_;
};

#pragma once

#include "window/form.h"

#include <array>
#include <functional>

class FileList;
class FolderList;
class Button;
class PathLabel;

// The window that gives a song its category and its recording with one click on one of 33 buttons. The
// category goes to the record for which the window was opened, the recording to the one on display.
class mp3 : public Form
{
    Q_OBJECT
public:
    // `setCategory` puts the record into the category.
    explicit mp3(std::function<void(int record, int category)> setCategory);

    // The names in Module1 are others.
    void showNames();

protected:
    void build(ControlMaker make) override;
    void load() override;

private:
    void makeCategoryButtons(ControlMaker make);

    void File1_Click();
    void Command3_Click(int index); // a category

    const std::function<void(int record, int category)> setCategory_;

    // In the order of the table of controls.
    FolderList *Dir1 = nullptr; // the folders
    FileList *File1 = nullptr; // the recordings in the open folder
    std::array<Button *, 34> Command3 = {}; // the categories, 1 to 33
    PathLabel *Label1 = nullptr; // the recording picked
};

#pragma once

#include "files/data_folder.h"
#include "window/form.h"

class FileList;
class FolderList;
class PathLabel;
class QLabel;

// The windows sinistra and destra, which put a JPEG file of the user's into place as the left or the right
// page of the record on display when "Ok" is clicked. A new left page always comes with the empty sheet as
// its right page.
class PagePicker : public Form
{
    Q_OBJECT
public:
    explicit PagePicker(Page page);

protected:
    void build(ControlMaker make) override;
    void load() override;

private:
    void File1_Click();
    void Command2_Click();

    bool storePage(int record) const;
    bool storeEmptyRightPage(int record) const;

    const Page page_;
    QString selectedFile; // what "Ok" copies; outlives the controls

    QLabel *Label2 = nullptr;
    PathLabel *Label1 = nullptr;
    FolderList *Dir1 = nullptr;
    FileList *File1 = nullptr;
};

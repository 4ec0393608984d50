#pragma once

#include "pages/page_files.h"
#include "window/form.h"

#include <functional>

class FileList;
class FolderList;
class PagePreview;
class PathLabel;
class QLabel;

// The windows sinistra and destra, which put a JPEG file of the user's into place as the left or the right
// page of the record on display when "Ok" is clicked. A new left page always comes with the empty sheet as
// its right page.
class PagePicker : public Form
{
    Q_OBJECT
public:
    // `stored` hears which pages of a record were just put in place.
    PagePicker(Page page, std::function<void(int record, const QList<Page> &pages)> stored);

protected:
    void build(ControlMaker make) override;
    void load() override;

private:
    void File1_Click();
    void Command2_Click(); // Ok
    void tell(int record, const PageStored &stored);

    const Page page_;
    const std::function<void(int record, const QList<Page> &pages)> stored_;
    QString selectedFile; // what "Ok" copies; outlives the controls

    // In the order of the table of controls.
    QLabel *Label2 = nullptr; // the heading
    FolderList *Dir1 = nullptr; // the folders
    FileList *File1 = nullptr; // the files of the open folder
    PathLabel *Label1 = nullptr; // the file picked

    PagePreview *preview_ = nullptr; // of the file that "Ok" copies
};

#pragma once

#include "merge/absorb.h"
#include "window/form.h"

#include <functional>

class QListWidget;

// The second window of a merge: lists the songs of the installation in mergeSourcePath, shows the left
// page of the one in front, and absorbs those that are ticked.
class merging : public Form
{
    Q_OBJECT
public:
    // `reopenMainWindow` closes the main window and opens it again, so that it reads the archive afresh.
    explicit merging(std::function<void()> reopenMainWindow);

protected:
    void build(ControlMaker make) override;
    void load() override;

private:
    void List1_Click();
    void Command2_Click();

    QList<int> tickedSlots() const;

    QListWidget *List1 = nullptr;
    ImageFrame *Image1 = nullptr;

    const std::function<void()> reopenMainWindow_;
    MergeSource source;
};

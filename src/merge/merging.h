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
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void List1_Click(); // a line comes to the front
    void Command2_Click(); // Absorb

    void markKnown();
    QList<int> tickedSlots() const;
    std::optional<CategoryTranslation> translationOf(const QList<int> &chosen) const;
    void tellFailure(const Result &result);

    QListWidget *List1 = nullptr; // Scores to absorb
    ImageFrame *Image1 = nullptr; // Left page

    const std::function<void()> reopenMainWindow_;
    MergeSource source;
    bool isPageShown_ = false; // since the mouse was last pressed
};

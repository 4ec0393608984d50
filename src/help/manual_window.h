#pragma once

#include "window/layout_window.h"

class ManualText;
class QLabel;
class QLineEdit;

// The window "Manual": docs/manual.md, whose words can be searched for.
class ManualWindow : public LayoutWindow
{
    Q_OBJECT
public:
    ManualWindow();

    // Comes forward with this heading at the top: its anchor, as chapterOf() gives it. An anchor that the
    // manual lacks shows its beginning.
    void showChapter(const QString &anchor);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    // From the caret on, then from the beginning.
    void searchOn();
    void tellFound(bool isFound);

    QLineEdit *search_;
    QLabel *found_;
    ManualText *text_;
};

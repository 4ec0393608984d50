#pragma once

#include "format/typed_text.h"

#include <QClipboard>
#include <QLineEdit>
#include <QPointer>

class QAction;

// A text box without a border and without a limit of length. Whatever a person puts in, with keys, an input
// method, by pasting or dropping, is admitted only as far as the data files can carry it, and a tool-tip
// names what was left out. What is refused as a whole changes nothing, not even the selection. Text that the
// program puts in stays as it is, also when an undo brings it back. Files are not dropped into it.
class TextBox : public QLineEdit
{
    Q_OBJECT
public:
    explicit TextBox(QWidget *parent);

    // Leaves undoing to the window: the box takes the keys for it no longer, so that they reach these two
    // actions, and its context menu has the actions in place of entries of its own.
    void leaveUndoTo(QAction *undo, QAction *redo);

protected:
    // What becomes of text that a person put in.
    virtual TypedText admit(const QString &typed) const { return carriedByFiles(typed); }

    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    struct Entry : TypedText {
        int composed = 0; // how many characters before the caret it takes the place of
    };
    Entry entering(const QString &typed, int caret) const;
    void putIn(const QString &typed);
    void putInAsOneStep(const QString &typed);
    void paste(QClipboard::Mode from);
    void endUndoStep();
    bool isLeftToWindow(const QKeyEvent &event) const;
    void tellLeftOut(const QStringList &characters);

    QPointer<QAction> undo_;
    QPointer<QAction> redo_;
    bool composesOverSelection_ = false; // an input method began while text was selected
};

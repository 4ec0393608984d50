#include "main/rooms.h"

#include <QAction>

// With what would be undone in its text, and the keys of the platform.
static Form1::UndoActions undoActions(QUndoStack &stack, QObject *owner)
{
    QAction *undo = stack.createUndoAction(owner, "Undo");
    undo->setShortcuts(QKeySequence::Undo);
    QAction *redo = stack.createRedoAction(owner, "Redo");
    QList<QKeySequence> keys = QKeySequence::keyBindings(QKeySequence::Redo);
    if (!keys.contains(QKeySequence("Ctrl+Y")))
        keys += QKeySequence("Ctrl+Y");
    redo->setShortcuts(keys);
    return {undo, redo};
}

Rooms::Rooms()
    : mp3_([this](int record, int category) {
        edits.set(Field::Category, {record}, {QString::number(category)});
    })
    , merging_([this] { form1.reload(); })
    , Premerge_([this] { openMerging(); })
    , undoing_(undoActions(edits.stack(), &actions_))
    , form1({[this] { sinistra.show(); }, [this] { destra.show(); }, [this] { mp3_.show(); },
             [this] { playlistfrm_.show(); }, [this] { midifrm_.show(); }, [this] { Premerge_.show(); }},
            edits, undoing_, menus())
{
}

QList<Form1::Menu> Rooms::menus()
{
    return {{"Edit", {undoing_.undo, undoing_.redo}}};
}

// An open list would only come forward, with the songs of the source before.
void Rooms::openMerging()
{
    merging_.unload();
    merging_.show();
}

#include "window/undo_actions.h"

#include <QAction>
#include <QUndoStack>

UndoActions undoActions(QUndoStack &stack, QObject *owner)
{
    const UndoActions actions{stack.createUndoAction(owner, "Undo"), stack.createRedoAction(owner, "Redo")};
    actions.undo->setShortcuts(QKeySequence::Undo);
    QList<QKeySequence> keys = QKeySequence::keyBindings(QKeySequence::Redo);
    if (!keys.contains(QKeySequence("Ctrl+Y")))
        keys += QKeySequence("Ctrl+Y");
    actions.redo->setShortcuts(keys);
    return actions;
}

#pragma once

class QAction;
class QObject;
class QUndoStack;

// What takes back a step and what does it again, with the system's keys and Ctrl+Y.
struct UndoActions {
    QAction *undo;
    QAction *redo;
};

UndoActions undoActions(QUndoStack &stack, QObject *owner);

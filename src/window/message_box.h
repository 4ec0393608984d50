#pragma once

#include <QString>

class QWidget;

// Message boxes of the program: modal, no icon, the program's name as the title where no other is given.
// They belong to the window in front.

void messageBox(const QString &text, const QString &title = "Tessaline");

// Yes and No; anything but Yes is false. Enter is Yes.
bool askYesNo(const QString &question);

// The same where a Yes destroys something: Enter is No.
bool askBeforeLoss(const QString &question);

// The window that a box of any kind belongs to; null while none is on the screen.
QWidget *windowInFront();

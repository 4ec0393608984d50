#pragma once

#include <QString>

// A message box for what may be too long for one: below `text` stands `report`, line by line, in a box
// that scrolls and whose text can be selected and copied. It fits on the screen whatever the length.
void reportBox(const QString &text, const QString &report);

// The same as a question where a Yes destroys something: Yes and No, Enter is No, anything but Yes is false.
bool askBeforeLoss(const QString &question, const QString &report);

#pragma once

#include <QString>

// A message box for what may be too long for one: below `text` stands `report`, line by line, in a box
// that scrolls and whose text can be selected and copied. It fits on the screen whatever the length.
void reportBox(const QString &text, const QString &report);

#pragma once

#include <QString>

// Text from a person or a file, made ready for the places of Qt that take some characters for more than
// themselves.

// A button's or a menu entry's text in which every "&" is to be seen.
QString shownAmpersands(QString text);

// A tool-tip that shows just these characters, also where they look like markup.
QString plainToolTip(const QString &text);

#pragma once

#include "support/windows.h"

// The texts of all rows of a list of a window.
QStringList shownRows(const QString &window, const QString &list);

// Real clicks into the file list and the folder list of a window.
void clickFile(const QString &window, const QString &file, Qt::KeyboardModifiers held = {});
void openFolder(const QString &window, const QString &folder);

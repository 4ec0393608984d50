#pragma once

#include <QList>
#include <QString>

class SongsOnDisk;

// The songs as a spreadsheet takes them from the clipboard: a line with the columns' names, then one for
// each song, with tabs between the cells. What is there or not is "yes" or empty.
QString spreadsheetText(const QList<int> &records, const SongsOnDisk &disk);

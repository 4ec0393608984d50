#pragma once

#include <QByteArray>
#include <QString>

// Fields of the data files: text between double quotes, in the code page. The files have no escape, so that
// a double quote inside the text goes out as an apostrophe; all else goes out unchanged.

void appendField(QByteArray &line, QStringView text);

// Puts the field, a comma and a line end into memory that has room for text.size() + 5 bytes, and returns
// where they end. For files of many thousand fields.
char *putFieldLine(char *to, QStringView text);

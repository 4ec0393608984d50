#pragma once

#include <QByteArray>
#include <QString>

// Appends `text` between double quotes, in the code page. The files have no escape, so that a double
// quote inside the text goes out as an apostrophe; all else goes out unchanged.
void appendField(QByteArray &line, QStringView text);

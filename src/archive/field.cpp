#include "archive/field.h"

#include "files/code_page.h"

void appendField(QByteArray &line, QStringView text)
{
    line += '"';
    line += toCodePage(text).replace('"', '\'');
    line += '"';
}

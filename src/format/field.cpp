#include "format/field.h"

#include "format/code_page.h"

static char *putField(char *to, QStringView text)
{
    *to++ = '"';
    for (const QChar character : text) {
        const char16_t code = character.unicode();
        if (code < 0x80 && code != u'"')
            *to++ = static_cast<char>(code);
        else
            *to++ = code == u'"' ? '\'' : toCodePage(character);
    }
    *to++ = '"';
    return to;
}

void appendField(QByteArray &line, QStringView text)
{
    const qsizetype start = line.size();
    line.resize(start + text.size() + 2);
    putField(line.data() + start, text);
}

char *putFieldLine(char *to, QStringView text)
{
    to = putField(to, text);
    *to++ = ',';
    *to++ = '\r';
    *to++ = '\n';
    return to;
}

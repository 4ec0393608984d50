#include "format/code_page.h"

#include <algorithm>
#include <array>

// What the bytes 80 to 9F stand for; all others stand for the character of the same number.
static constexpr std::array<char16_t, 32> upperControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

static constexpr bool isUpperControl(char16_t code)
{
    return code >= 0x80 && code <= 0x9F;
}

// Without a branch in its loop, so that the compiler makes it look at many bytes at once.
static bool hasUpperControls(QByteArrayView bytes)
{
    quint8 found = 0;
    for (const char byte : bytes)
        found = static_cast<quint8>(found | (static_cast<quint8>(byte & 0xE0) == 0x80));
    return found != 0;
}

QString fromCodePage(QByteArrayView bytes)
{
    QString text = QString::fromLatin1(bytes);
    for (QChar &character : text) {
        if (isUpperControl(character.unicode()))
            character = upperControls[character.unicode() - 0x80u];
    }
    return text;
}

CodePageReader codePageReaderFor(QByteArrayView whole)
{
    if (hasUpperControls(whole))
        return fromCodePage;
    return [](QByteArrayView part) { return QString::fromLatin1(part); };
}

// The byte for a character, or -1.
static int byteFor(char16_t code)
{
    if (code < 0x80 || (code >= 0xA0 && code <= 0xFF))
        return code;
    const auto found = std::find(upperControls.begin(), upperControls.end(), code);
    return found == upperControls.end() ? -1 : 0x80 + static_cast<int>(found - upperControls.begin());
}

char toCodePage(QChar character)
{
    const int byte = byteFor(character.unicode());
    return byte < 0 ? '?' : static_cast<char>(byte);
}

QByteArray toCodePage(QStringView text)
{
    QByteArray bytes(text.size(), Qt::Uninitialized);
    std::transform(text.begin(), text.end(), bytes.begin(),
                   [](QChar character) { return toCodePage(character); });
    return bytes;
}

bool isInCodePage(QChar character)
{
    return byteFor(character.unicode()) >= 0;
}

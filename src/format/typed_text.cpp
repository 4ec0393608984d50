#include "format/typed_text.h"

#include "format/code_page.h"

#include <QHash>

static bool isBreak(char32_t code)
{
    return (code >= '\t' && code <= '\r') || code == 0x85 || code == 0x2028 || code == 0x2029;
}

static bool isCarried(char32_t code)
{
    return code <= 0xFFFF && isInCodePage(QChar(static_cast<char16_t>(code)))
        && QChar::category(code) != QChar::Other_Control;
}

// The letters whose base letter Unicode's decompositions do not tell.
static char16_t withoutStroke(char32_t code)
{
    static const QHash<char32_t, char16_t> letters = {{U'đ', u'd'}, {U'Đ', u'D'}, {U'ħ', u'h'},
                                                      {U'Ħ', u'H'}, {U'ı', u'i'}, {U'ł', u'l'},
                                                      {U'Ł', u'L'}, {U'ŧ', u't'}, {U'Ŧ', u'T'}};
    return letters.value(code);
}

// The letters that stand for one the code page lacks; empty if there are none.
static QString baseLetters(char32_t code)
{
    if (const char16_t letter = withoutStroke(code))
        return QString(QChar(letter));
    if (!QChar::isLetter(code))
        return {};
    QString letters;
    for (const QChar part : QString::fromUcs4(&code, 1).normalized(QString::NormalizationForm_KD)) {
        if (part.isLetter() && isInCodePage(part))
            letters += part;
    }
    return letters;
}

static QString counterpart(char32_t code)
{
    if (code == U'"')
        return "'";
    if (code == U'\\')
        return "/";
    if (isBreak(code))
        return " ";
    if (isCarried(code))
        return QString::fromUcs4(&code, 1);
    return baseLetters(code);
}

TypedText carriedByFiles(const QString &typed)
{
    QString composed = typed.normalized(QString::NormalizationForm_C);
    composed.replace("\r\n", "\n");
    TypedText result;
    for (const uint code : composed.toUcs4()) {
        const QString carried = counterpart(code);
        result.text += carried;
        const char32_t character = code;
        const QString shown = QString::fromUcs4(&character, 1);
        if (carried.isEmpty() && !QChar::isMark(code) && !result.leftOut.contains(shown))
            result.leftOut += shown;
    }
    return result;
}

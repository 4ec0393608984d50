#include "format/typed_text.h"

#include "format/code_page.h"

#include <QHash>

#include <algorithm>

static constexpr qsizetype mostNamed = 10; // of the characters left out

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

// What stands for a character that is not carried as it is; empty if nothing can.
static QString counterpart(char32_t code)
{
    return QChar::isSpace(code) ? QStringLiteral(" ") : baseLetters(code);
}

static QString shown(char32_t code)
{
    return QChar::isPrint(code) ? QString::fromUcs4(&code, 1)
                                : QStringLiteral("U+%1").arg(uint{code}, 4, 16, QLatin1Char('0')).toUpper();
}

static void noteLeftOut(QStringList &leftOut, char32_t code)
{
    if (leftOut.size() > mostNamed || QChar::isMark(code) || leftOut.contains(shown(code)))
        return;
    leftOut += leftOut.size() == mostNamed ? QStringLiteral("…") : shown(code);
}

// In pieces, since Qt composes in a time that grows with the square of the length. No piece begins with an
// accent, unless it is one of hundreds on the same letter.
static QString composed(const QString &text)
{
    static constexpr qsizetype usualPiece = 256;
    QString all;
    for (qsizetype start = 0, end = 0; start < text.size(); start = end) {
        end = qMin(start + usualPiece, text.size());
        while (end < text.size() && end - start < 2 * usualPiece
               && (text[end].isMark() || text[end].isLowSurrogate()))
            end += 1;
        all += text.mid(start, end - start).normalized(QString::NormalizationForm_C);
    }
    return all;
}

// Most titles are of such letters alone.
static bool isPlain(const QString &text)
{
    return std::all_of(text.begin(), text.end(), [](QChar each) {
        return each >= u' ' && each <= u'~' && each != u'"' && each != u'\\';
    });
}

TypedText carriedByFiles(const QString &typed)
{
    if (isPlain(typed))
        return {typed, {}};
    QString text = composed(typed);
    text.replace("\r\n", "\n").replace(u'"', u'\'').replace(u'\\', u'/');
    TypedText result;
    for (const char32_t code : text.toUcs4()) {
        if (isCarried(code)) {
            result.text += QChar(static_cast<char16_t>(code));
            continue;
        }
        const QString carried = counterpart(code);
        result.text += carried;
        if (carried.isEmpty())
            noteLeftOut(result.leftOut, code);
    }
    return result;
}

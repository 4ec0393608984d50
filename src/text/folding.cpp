#include "text/folding.h"

#include <QVarLengthArray>

#include <algorithm>
#include <array>

namespace
{
// What becomes of one character: one or two, with their accents and without.
struct Letters {
    std::array<char16_t, 2> accented{};
    std::array<char16_t, 2> bare{};
    int count = 1;
};
} // namespace

static QStringView replacement(QChar character)
{
    switch (character.unicode()) {
    case u'ß':
    case u'ẞ':
        return u"ss";
    case u'œ':
    case u'Œ':
        return u"oe";
    case u'æ':
    case u'Æ':
        return u"ae";
    case u'ø':
    case u'Ø':
        return u"o";
    case u'‘':
    case u'’':
        return u"'";
    case u'–':
    case u'—':
        return u"-";
    case u'\u00A0':
        return u" ";
    default:
        return {};
    }
}

static Letters lettersOf(QChar character)
{
    Letters letters;
    if (const QStringView other = replacement(character); !other.isEmpty()) {
        letters.count = static_cast<int>(other.size());
        std::copy(other.utf16(), other.utf16() + other.size(), letters.accented.begin());
        letters.bare = letters.accented;
        return letters;
    }
    const QChar small = character.toLower();
    const QString parts = QString(small).normalized(QString::NormalizationForm_D);
    const bool isAccented = parts.size() > 1 && parts[0].isLetter() && parts[1].isMark();
    letters.accented[0] = small.unicode();
    letters.bare[0] = isAccented ? parts[0].unicode() : small.unicode();
    return letters;
}

// Almost all letters of the files are among the first of Unicode.
static Letters knownLettersOf(QChar character)
{
    static constexpr size_t known = 0x180;
    static const auto table = [] {
        std::array<Letters, known> all;
        for (size_t code = 0; code < known; code += 1)
            all[code] = lettersOf(QChar(static_cast<char16_t>(code)));
        return all;
    }();
    const size_t code = character.unicode();
    return code < known ? table[code] : lettersOf(character);
}

Folded fold(QStringView text)
{
    QVarLengthArray<char16_t, 256> accented;
    QVarLengthArray<char16_t, 256> bare;
    for (const QChar character : text) {
        const Letters letters = knownLettersOf(character);
        accented.append(letters.accented.data(), letters.count);
        bare.append(letters.bare.data(), letters.count);
    }
    Folded folded;
    folded.bare = QStringView(bare).toString();
    // Most texts have no accents, and then both forms share their memory.
    folded.accented = accented == bare ? folded.bare : QStringView(accented).toString();
    return folded;
}

QString foldedTitle(QStringView title)
{
    return fold(title).bare.simplified();
}

Query::Query(const QString &typed)
{
    const QStringList pieces = typed.normalized(QString::NormalizationForm_C).split(u'"');
    for (qsizetype i = 0; i < pieces.size(); i += 1) {
        const bool isQuoted = i % 2 == 1;
        if (isQuoted) {
            addWord(pieces[i]);
            continue;
        }
        for (const QString &word : pieces[i].simplified().split(u' '))
            addWord(word);
    }
}

void Query::addWord(QStringView word)
{
    if (!word.isEmpty())
        words_ += fold(word);
}

// Whether the accents of the word are those of the text where its letters were found.
static bool accentsAgree(const Folded &text, const Folded &word, qsizetype place)
{
    for (qsizetype i = 0; i < word.accented.size(); i += 1) {
        const bool isAccented = word.accented[i] != word.bare[i];
        if (isAccented && word.accented[i] != text.accented[place + i])
            return false;
    }
    return true;
}

// The next place of the word from `from` on; -1 if there is none. In texts as short as these, looking for its
// first letter is faster than whatever prepares itself for the whole word.
static qsizetype placeOf(const Folded &text, const Folded &word, qsizetype from)
{
    const qsizetype last = text.bare.size() - word.bare.size();
    const auto isAt = [&](qsizetype place) {
        return std::equal(word.bare.begin(), word.bare.end(), text.bare.begin() + place)
            && accentsAgree(text, word, place);
    };
    qsizetype place = text.bare.indexOf(word.bare[0], from);
    while (place >= 0 && place <= last && !isAt(place))
        place = text.bare.indexOf(word.bare[0], place + 1);
    return place <= last ? place : -1;
}

bool occursIn(const Folded &text, const Folded &word)
{
    return placeOf(text, word, 0) >= 0;
}

// For each character of the text whether it is found, from marks on its folded letters.
static QList<bool> foundCharacters(QStringView text, const QList<bool> &foundLetters)
{
    QList<bool> found;
    qsizetype letter = 0;
    for (const QChar character : text) {
        const int count = knownLettersOf(character).count;
        found += foundLetters[letter] || foundLetters[letter + count - 1];
        letter += count;
    }
    return found;
}

QList<TextPart> partsFound(QStringView text, const Query &query)
{
    const Folded folded = fold(text);
    QList<bool> letters(folded.bare.size(), false);
    for (const Folded &word : query.words()) {
        for (qsizetype at = placeOf(folded, word, 0); at >= 0; at = placeOf(folded, word, at + 1))
            std::fill_n(letters.begin() + at, word.bare.size(), true);
    }
    QList<TextPart> parts;
    const QList<bool> found = foundCharacters(text, letters);
    for (qsizetype i = 0; i < found.size(); i += 1) {
        if (!found[i])
            continue;
        if (i == 0 || !found[i - 1])
            parts += TextPart{i, 0};
        parts.last().length += 1;
    }
    return parts;
}

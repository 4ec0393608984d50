#include "intake/page_mark.h"

#include <QRegularExpression>
#include <QSet>

// English, German, French and Italian, as people write them.
static constexpr char leftWords[] = "left|links|linke|sinistra|sx|gauche|l";
static constexpr char rightWords[] = "right|rechts|rechte|destra|dx|droite|r";
static constexpr char pageWords[] = "pages?|pag|pg|p|seite|blatt|s|pagina|foglio|feuillet|feuille|sheet";

// The parts of the pattern, in its order; Qt looks for names as often as one asks.
enum Part { Base = 1, Bracket, Left, Right, Word, Number, Of, Letter };

// Something, a separator or an opening bracket, the mark, a closing bracket. The shortest base is taken, so
// that "page" belongs to the mark. The names of an archive's own files, "12L", need no separator.
static QRegularExpression makePattern()
{
    static constexpr char pattern[] =
        R"(^(?<base>.*?[^\s_.\-(\[{])(?:[\s_.\-]+|(?<bracket>[\s_.\-]*[(\[{])\s*|(?<=\d)(?=[lr]$))(?:)"
        R"((?:(?:%1)[\s_.\-]+)?(?:(?<left>%2)|(?<right>%3))(?:[\s_.\-]+(?:%1))?|)"
        R"((?:(?<word>%1)[\s_.\-]*)?(?<number>\d{1,5})(?:\s*(?<of>of|von|sur|di)\s*\d+)?|)"
        R"((?<letter>[a-l]))\s*[)\]}]?$)";
    return QRegularExpression(QString(pattern).arg(pageWords, leftWords, rightWords),
                              QRegularExpression::CaseInsensitiveOption
                                  | QRegularExpression::UseUnicodePropertiesOption);
}

static QString lastWord(const QString &text)
{
    qsizetype start = text.size();
    while (start > 0 && (text[start - 1].isLetter() || text[start - 1] == u'°' || text[start - 1] == u'º'))
        start -= 1;
    return text.sliced(start).toLower();
}

// Behind one of these, a number is that of a work, and a letter a key.
static bool isOfWork(const PageMark &mark)
{
    static const QSet<QString> beforeNumbers = {
        "no",   "nr",  "n",    "n°",   "nº",    "num",   "nummer",   "number", "numero", "numéro", "op",
        "opus", "k",   "kv",   "bwv",  "hwv",   "rv",    "d",        "hob",    "woo",    "vol",    "volume",
        "band", "bd",  "heft", "tome", "libro", "livre", "book",     "teil",   "part",   "parte",  "partie",
        "act",  "akt", "atto", "acte", "satz",  "mov",   "movement", "suite"};
    static const QSet<QString> beforeLetters = {"in", "en", "the", "der", "la", "vitamin"};
    const QString word = lastWord(mark.base);
    return mark.kind == PageMark::Letter ? beforeLetters.contains(word) : beforeNumbers.contains(word);
}

// "IMG", "Scan 2023-11-04", "20231104": nothing that a person would call a song.
static bool isOfMachine(const QString &base)
{
    static const QSet<QString> words = {"scan",         "scans",      "scanned",    "scanner",
                                        "scansione",    "scannen",    "img",        "image",
                                        "imgp",         "dsc",        "dscn",       "dscf",
                                        "pict",         "pic",        "photo",      "foto",
                                        "bild",         "immagine",   "numérisé",   "numérisée",
                                        "numérisation", "doc",        "docs",       "document",
                                        "dokument",     "documento",  "ccf",        "epson",
                                        "brother",      "canon",      "hp",         "mfp",
                                        "adobescan",    "camscanner", "screenshot", "bildschirmfoto",
                                        "page",         "seite",      "pagina",     "whatsappimageat",
                                        "file",         "unbenannt",  "untitled",   "sanstitre",
                                        "senzatitolo",  "img_e",      "xerox",      "pxl"};
    QString letters;
    int digits = 0;
    for (const QChar each : base) {
        if (each.isLetter())
            letters += each.toLower();
        else if (each.isDigit())
            digits += 1;
    }
    return letters.isEmpty() ? digits >= 4 : words.contains(letters);
}

static PageMark markIn(const QRegularExpressionMatch &found)
{
    PageMark mark{found.captured(Base)};
    const bool isBracketed = found.hasCaptured(Bracket);
    const QStringView behind = found.capturedView().sliced(found.capturedEnd(Base));
    const QChar before = behind.isEmpty() ? QChar() : behind.front();
    mark.isPlain =
        isBracketed || found.hasCaptured(Word) || found.hasCaptured(Of) || before == u'_' || before == u'-';
    if (found.hasCaptured(Number)) {
        mark.kind = PageMark::Number;
        mark.place = found.captured(Number).toInt();
    } else if (found.hasCaptured(Letter)) {
        mark.kind = PageMark::Letter;
        mark.place = found.captured(Letter).toLower()[0].unicode() - u'a' + 1;
    } else {
        mark.place = found.hasCaptured(Left) ? 1 : 2;
        mark.isPlain = true;
    }
    return mark;
}

std::optional<PageMark> pageMarkOf(const QString &stem)
{
    static const QRegularExpression pattern = makePattern();
    const QRegularExpressionMatch found = pattern.match(stem);
    if (!found.hasMatch())
        return {};
    const PageMark mark = markIn(found);
    if (mark.kind != PageMark::Side
        && (isOfMachine(mark.base) || (isOfWork(mark) && !found.hasCaptured(Word))))
        return {};
    return mark;
}

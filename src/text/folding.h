#pragma once

#include <QList>
#include <QString>

// How texts are compared where a person looks for one: case does not count, ß is ss, œ is oe, æ is ae, ø is
// o, and the quotation marks and dashes of a printer are those of a keyboard. A letter without an accent
// stands for those with one too, and a letter with an accent for itself alone.

// A text made ready for it. Both forms are of the same length.
struct Folded {
    QString accented; // in small letters
    QString bare; // the same without accents

    bool operator==(const Folded &) const = default;
};

// The text must be composed, as whatever has gone through carriedByFiles() is.
Folded fold(QStringView text);

// What makes two titles equal: no case, no accents, no blanks around or doubled.
QString foldedTitle(QStringView title);

// What a person typed to find something: words between blanks, in any order, each of which must occur. A
// word in double quotes is taken with its blanks, and one whose second quote is missing ends with the text.
class Query
{
public:
    Query() = default;
    explicit Query(const QString &typed);

    const QList<Folded> &words() const { return words_; }
    bool isEmpty() const { return words_.isEmpty(); }

private:
    void addWord(QStringView word);

    QList<Folded> words_;
};

// True if the word stands somewhere in the text.
bool occursIn(const Folded &text, const Folded &word);

// Where in a text something stands, counted in QChars from 0.
struct TextPart {
    qsizetype start = 0;
    qsizetype length = 0;

    bool operator==(const TextPart &) const = default;
};

// All the places in which words of the query occur, in their order; those that touch are one.
QList<TextPart> partsFound(QStringView text, const Query &query);

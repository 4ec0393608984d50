#include "audio/categories_file.h"

#include "archive/Module1.h"
#include "files/data_folder.h"
#include "files/safe_write.h"
#include "format/code_page.h"
#include "format/token.h"
#include "text/counting.h"

#include <algorithm>

using Kind = Result::Kind;

static bool isLineEnd(char byte)
{
    return byte == '\r' || byte == '\n';
}

static bool isQuoted(const TokenFile &file, qsizetype start, QByteArrayView token)
{
    return token.begin() > file.bytes.begin() + start && token.begin()[-1] == '"';
}

// Takes the next token; false if it is no text between double quotes on one line.
static bool takeName(TokenFile &file, QByteArrayView &name)
{
    const qsizetype start = file.position;
    name = readToken(file);
    const bool isClosed = name.end() != file.bytes.end();
    return isQuoted(file, start, name) && isClosed && std::none_of(name.begin(), name.end(), isLineEnd);
}

// Takes the token behind a name; false if the next one would not be the next line's name.
static bool takeRestOfLine(TokenFile &file)
{
    if (file.bytes[file.position - 1] != ',')
        return false;
    const qsizetype start = file.position;
    const QByteArrayView rest = readToken(file);
    return !isQuoted(file, start, rest) && (file.atEnd() || isLineEnd(file.bytes[file.position - 1]));
}

static bool isEnd(QByteArrayView rest)
{
    const QByteArrayView text = rest.trimmed();
    return text.isEmpty() || text.startsWith(']');
}

// Takes names as long as each stands where it should; where they stop, `lineStart` is the bad line's.
static int takeNames(TokenFile &file, CategoryNames &names, qsizetype &lineStart)
{
    readToken(file);
    for (size_t k = 1; k <= categoryCount; k += 1) {
        lineStart = file.position;
        QByteArrayView name;
        if (!takeName(file, name))
            return static_cast<int>(k) - 1;
        names.name[k] = fromCodePage(name);
        if (k < categoryCount && !takeRestOfLine(file))
            return static_cast<int>(k);
    }
    return categoryCount;
}

CategoryNames categoriesIn(QByteArrayView bytes)
{
    CategoryNames names;
    for (size_t k = 1; k <= categoryCount; k += 1)
        names.name[k] = QString::number(k);
    TokenFile file{bytes};
    qsizetype lineStart = 0;
    names.known = takeNames(file, names, lineStart);
    if (names.known < categoryCount) {
        names.badLine = lineAt(bytes, lineStart);
        names.endsThere = isEnd(bytes.sliced(lineStart));
    }
    return names;
}

static QString reasonOf(const CategoryNames &names)
{
    if (names.endsThere)
        return QStringLiteral("it ends in line %1 and holds %2 instead of %3")
            .arg(QString::number(names.badLine), counted(names.known, "name"),
                 QString::number(categoryCount));
    return QStringLiteral("its line %1 should hold one name between double quotes and a comma behind it")
        .arg(names.badLine);
}

CategoriesReading readCategoriesOf(const QString &root)
{
    const QString path = categoriesPath(root);
    QByteArray bytes;
    Result read = readWhole(path, bytes);
    CategoriesReading reading{read, categoriesIn(bytes)};
    if (read.ok() && reading.names.known < categoryCount)
        reading.result = Result::failed(Kind::Damaged, path, reasonOf(reading.names));
    return reading;
}

Result readCategories()
{
    CategoriesReading reading = readCategoriesOf(".");
    std::move(reading.names.name.begin() + 1, reading.names.name.end(), Module1.categoryName.begin() + 1);
    return reading.result;
}

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

// Takes names as long as each stands where it should.
static void takeNames(TokenFile &file, CategoryTable &table)
{
    readToken(file);
    bool isWhole = true; // the line before
    for (size_t k = 1; isWhole && k <= categoryCount; k += 1) {
        table.end = file.position;
        QByteArrayView name;
        if (!takeName(file, name))
            return;
        table.name[k] = fromCodePage(name);
        table.place[k] = name.begin() - file.bytes.begin();
        table.known += 1;
        isWhole = takeRestOfLine(file);
    }
}

CategoryTable categoriesIn(QByteArrayView bytes)
{
    CategoryTable table;
    for (size_t k = 1; k <= categoryCount; k += 1)
        table.name[k] = QString::number(k);
    TokenFile file{bytes};
    takeNames(file, table);
    if (table.known < categoryCount) {
        table.badLine = lineAt(bytes, table.end);
        table.isShort = isEnd(bytes.sliced(table.end));
    }
    return table;
}

static QString reasonOf(const CategoryTable &table)
{
    if (table.isShort)
        return QStringLiteral("it ends in line %1 and holds %2 instead of %3")
            .arg(QString::number(table.badLine), counted(table.known, "name"),
                 QString::number(categoryCount));
    return QStringLiteral("its line %1 should hold one name between double quotes and a comma behind it")
        .arg(table.badLine);
}

CategoriesReading readCategoriesOf(const QString &root)
{
    const QString path = categoriesPath(root);
    CategoriesReading reading;
    reading.result = readWhole(path, reading.bytes);
    reading.table = categoriesIn(reading.bytes);
    if (reading.result.ok() && reading.table.known < categoryCount)
        reading.result = Result::failed(Kind::Damaged, path, reasonOf(reading.table));
    return reading;
}

Result readCategories()
{
    const CategoriesReading reading = readCategoriesOf(".");
    std::copy(reading.table.name.begin() + 1, reading.table.name.end(), Module1.categoryName.begin() + 1);
    return reading.result;
}

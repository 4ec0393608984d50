#include "audio/categories_writer.h"

#include "archive/Module1.h"
#include "files/data_folder.h"
#include "files/safe_write.h"
#include "format/field.h"
#include "format/typed_text.h"

#include <algorithm>

using Kind = Result::Kind;
using Outcome = CategoriesSaving::Outcome;

CategoryNames usualCategories()
{
    return {"",        "Classical", "Opera",   "Sacred",  "Christmas", "Folk",   "Children",
            "Waltz",   "Tango",     "Polka",   "Mazurka", "March",     "Jazz",   "Blues",
            "Ragtime", "Swing",     "Pop",     "Rock",    "Country",   "Latin",  "Bossa nova",
            "Samba",   "Rumba",     "Cha cha", "Bolero",  "Musette",   "Ballad", "Film",
            "Musical", "Anthem",    "Dance",   "Shanty",  "Study",     "Other"};
}

bool isUnderstood(const CategoriesReading &reading)
{
    return reading.result.kind != Kind::Damaged || reading.table.isShort;
}

// The known names are replaced where they stand, the others go in behind them.
static QByteArray withNames(QByteArrayView bytes, const CategoryTable &table, const CategoryNames &names)
{
    static constexpr qsizetype quote = 1;
    QByteArray written;
    qsizetype done = 0;
    for (size_t k = 1; k <= static_cast<size_t>(table.known); k += 1) {
        written += bytes.sliced(done, table.place[k] - quote - done);
        appendField(written, names[k]);
        done = table.place[k] + table.name[k].size() + quote;
    }
    if (table.known == categoryCount)
        return written + bytes.sliced(done).toByteArray();
    written += bytes.sliced(done, table.end - done);
    if (!written.endsWith('\n') && !written.endsWith('\r'))
        written += "\r\n";
    for (size_t k = static_cast<size_t>(table.known) + 1; k <= categoryCount; k += 1) {
        appendField(written, names[k]);
        written += ",\r\n";
    }
    const QByteArrayView rest = bytes.sliced(table.end);
    return written + (rest.trimmed().isEmpty() ? QByteArray(" ];\r\n") : rest.toByteArray());
}

// What the file had stays as it was, also what cannot be typed.
static CategoryNames carriedNames(const CategoryNames &names, const CategoryTable &table)
{
    CategoryNames carried;
    for (size_t k = 1; k <= categoryCount; k += 1)
        carried[k] = names[k] == table.name[k] ? names[k] : carriedByFiles(names[k]).text;
    return carried;
}

static QByteArray fileWith(const CategoriesReading &read, const CategoryNames &names)
{
    static constexpr QByteArrayView noNames = "var generi = [\r\n ];\r\n";
    const bool keeps = isUnderstood(read) && !read.bytes.trimmed().isEmpty();
    const QByteArrayView bytes = keeps ? QByteArrayView(read.bytes) : noNames;
    const CategoryTable table = categoriesIn(bytes);
    return withNames(bytes, table, carriedNames(names, table));
}

CategoriesSaving saveCategories(CategoriesReading &read, const CategoryNames &names)
{
    CategoriesReading onDisk = readCategoriesOf(".");
    if (onDisk.result.kind == Kind::Unreadable)
        return {Outcome::NotRead, onDisk.result, {}};
    if (onDisk.result.kind != Kind::Missing && onDisk.bytes != read.bytes)
        return {Outcome::Changed, {}, std::move(onDisk)};
    const QByteArray bytes = fileWith(read, names);
    if (const Result written = replaceFile(categoriesPath(), bytes); !written.ok())
        return {Outcome::NotWritten, written, {}};
    read = {{}, bytes, categoriesIn(bytes)};
    std::copy(read.table.name.begin() + 1, read.table.name.end(), Module1.categoryName.begin() + 1);
    return {};
}

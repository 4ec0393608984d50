#include "archive/archive_file.h"
#include "files/data_folder.h"
#include "files/safe_write.h"
#include "format/code_page.h"
#include "format/token.h"
#include "support/ratio.h"
#include "support/test_folder.h"

#include <vector>

static QStringList records()
{
    QStringList records;
    for (int i = 1; i <= Module1State::lastRecord; i += 1) {
        records += QStringLiteral("Title of song no. %1, à la carte|Author %2|ballad slow tag%3|%4")
                       .arg(i)
                       .arg(i % 700)
                       .arg(i % 90)
                       .arg(i % 34);
    }
    return records;
}

// Where the fields of the archive stand: every second token.
static std::vector<QByteArrayView> slices(const QByteArray &bytes)
{
    std::vector<QByteArrayView> fields;
    TokenFile file{bytes};
    readToken(file);
    while (fields.size() < 5u * Module1State::lastRecord) {
        fields.push_back(readToken(file));
        readToken(file);
    }
    return fields;
}

// Reads the file and makes the same texts in the same arrays, from slices that are known beforehand.
static void makeKnownStrings(const std::vector<QByteArrayView> &known)
{
    QByteArray bytes;
    if (!readWhole(archivePath(), bytes).ok())
        qFatal("cannot read");
    Module1State::Column *columns[] = {&Module1.recNumber, &Module1.recTitle, &Module1.recAuthor,
                                       &Module1.recTags, &Module1.recCategory};
    for (size_t i = 0; i < known.size(); i += 1)
        (*columns[i % 5])[i / 5 + 1] = QString::fromLatin1(known[i]);
}

int main()
{
    TestFolder folder;
    const QByteArray bytes = archiveOf(records());
    put(archivePath(), bytes);
    const std::vector<QByteArrayView> known = slices(bytes);

    compare(
        {"load 9,999 records", "read the file, make its strings from known slices", 1.5},
        [] { (void)loadArchive(); }, [&] { makeKnownStrings(known); });
    compare(
        {"save 9,999 records", "write the same bytes in the same safe order", 1.5},
        [] { (void)writeArchive(); }, [&] { (void)replaceFile(archivePath(), bytes); });
    return contents(archivePath()) == bytes ? 0 : 1;
}

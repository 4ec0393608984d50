#include "archive/Module1.h"
#include "audio/categories_writer.h"
#include "files/data_folder.h"
#include "support/test_folder.h"

#include <QDir>
#include <QFile>
#include <QTest>

using Outcome = CategoriesSaving::Outcome;

// 33 names, some of them odd.
static QStringList allNames()
{
    QStringList names = {"a, b; c", "", "Città", "d'e", "];"};
    for (int k = 6; k <= categoryCount; k += 1)
        names += QString::number(100 + k);
    return names;
}

static QByteArray fileOfNames(int count)
{
    return fileOf("generi", count > 0 ? linesOf(allNames().first(count).join('|')) : QByteArray());
}

// The whole file with something else in one place.
static QByteArray with(const char *before, const char *after)
{
    QByteArray file = fileOfNames(categoryCount);
    return file.replace(file.indexOf(before), qsizetype(qstrlen(before)), after);
}

static CategoryNames namesOf(const QStringList &names)
{
    CategoryNames result;
    std::copy(names.begin(), names.end(), result.begin() + 1);
    return result;
}

// The file with its names from the first to `known` renamed, and those behind it added.
static QByteArray renamed(const QByteArray &file, int known)
{
    QByteArray bytes = file;
    const QStringList names = allNames();
    for (int k = 0; k < known; k += 1) {
        const QByteArray name = linesOf(names[k]).chopped(3);
        bytes.replace(bytes.indexOf(name), name.size(),
                      QByteArray("\"New ") + QByteArray::number(k + 1) + '"');
    }
    QByteArray added;
    for (int k = known + 1; k <= categoryCount; k += 1)
        added += QByteArray("\"New ") + QByteArray::number(k) + "\",\r\n";
    return bytes.insert(bytes.indexOf(" ];\r\n"), added);
}

class CategoriesFileTest : public QObject
{
    Q_OBJECT
private slots:
    void file_givesNamesUpToItsFirstBadLine_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<int>("known");
        QTest::addColumn<int>("badLine");
        const QByteArray whole = fileOfNames(categoryCount);
        const auto row = [](const char *name, const QByteArray &bytes, int known, int badLine) {
            QTest::addRow("%s", name) << bytes << known << badLine;
        };
        row("whole", whole, 33, 0);
        row("any head", with("var generi = [", "x"), 33, 0);
        row("blank lines behind it", whole + "\r\n\r\n\n", 33, 0);
        row("more names", fileOf("generi", linesOf(allNames().join('|')).repeated(6)), 33, 0);
        row("no comma behind the last", whole.chopped(8), 33, 0);
        row("other line ends", QByteArray(whole).replace("\r\n", "\n"), 33, 0);
        row("blanks and a remark", with("\"110\",", "  \"110\", // ten"), 33, 0);
        row("too few", fileOfNames(12), 12, 14);
        row("too few, blank lines", fileOfNames(12) + QByteArray("\r\n").repeated(99), 12, 14);
        row("too few, no closing line", fileOfNames(12).chopped(5), 12, 14);
        row("too few, no comma", fileOfNames(12).replace("112\",", "112\""), 12, 13);
        row("none", fileOfNames(0), 0, 2);
        row("empty", {}, 0, 1);
        row("head on two lines", with(" [", " \r\n["), 0, 2);
        row("head missing", whole.sliced(16), 0, 1);
        row("name in the head's line", with("[\r\n", "["), 0, 1);
        row("no comma", with("\"110\",", "\"110\""), 10, 11);
        row("a blank before the comma", with("\"110\",", "\"110\" ,"), 10, 11);
        row("two in a line", with("\"110\",\r\n", "\"110\","), 10, 11);
        row("text behind the comma", with("\"110\",", "\"110\", a, b"), 10, 11);
        row("two in a line, two commas", with("\"110\",\r\n\"111\",", "\"110\",\"111\""), 10, 11);
        row("blank line", with("\"110\"", "\r\n\"110\""), 9, 11);
        row("script line", with("\"110\"", "show(generi),\r\n\"110\""), 9, 11);
        row("no first quote", with("\"110\"", "110\""), 9, 11);
        row("no last quote", with("\"110\"", "\"110"), 9, 11);
        row("no last quote in the last", whole.chopped(9), 32, 34);
    }

    void file_givesNamesUpToItsFirstBadLine()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(int, known);
        QFETCH(int, badLine);
        const TestFolder folder;
        put("other/spartiti/generi.js", bytes);
        const auto [result, read, table] = readCategoriesOf("other");
        QCOMPARE(read, bytes);
        QCOMPARE(table.badLine, badLine);
        QCOMPARE(table.known, known);
        for (int k = 1; k <= categoryCount; k += 1)
            QCOMPARE(table.name[size_t(k)], k <= known ? allNames()[k - 1] : QString::number(k));
        QCOMPARE(result.ok(), badLine == 0);
        QVERIFY(result.ok() || result.reason.contains(QStringLiteral("line %1").arg(badLine)));
    }

    void ownFile_fillsTheSharedNamesAlone()
    {
        const TestFolder folder;
        Module1.categoryName.fill("old");
        QCOMPARE(readCategories().kind, Result::Kind::Missing);
        QCOMPARE(Module1.categoryName[33], "33");
        put(categoriesPath(), fileOfNames(categoryCount));
        QVERIFY(readCategories().ok());
        QCOMPARE(QStringList(&Module1.categoryName[1], &Module1.categoryName[34]), allNames());
        QCOMPARE(Module1.categoryName[0] + Module1.categoryName[34], "oldold");
    }

    // Renamed or not, all else in the file stays as it was.
    void save_changesTheNamesAlone_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<int>("known");
        const QByteArray whole = fileOfNames(categoryCount);
        QTest::addRow("whole") << whole << 33;
        QTest::addRow("40 names") << QByteArray(whole).insert(whole.size() - 5,
                                                              linesOf("34|35|36|37|38|39|40"))
                                  << 33;
        QTest::addRow("script behind it") << whole + "show(generi);\r\n\r\n" << 33;
        QTest::addRow("a remark") << with("\"110\",", "  \"110\", // ten") << 33;
        QTest::addRow("other line ends")
            << QByteArray(whole).replace("\r\n", "\n").replace(" ];\n", " ];\r\n") << 33;
        QTest::addRow("no comma behind the last") << QByteArray(whole).replace("\"133\",", "\"133\"") << 33;
        QTest::addRow("too few") << fileOfNames(12) + "\r\n" << 12;
        QTest::addRow("none") << fileOfNames(0) << 0;
    }

    void save_changesTheNamesAlone()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(int, known);
        const TestFolder folder;
        put(categoriesPath(), bytes);
        CategoriesReading read = readCategoriesOf(".");
        QVERIFY(isUnderstood(read));
        CategoryNames names = read.table.name;
        if (known == categoryCount) {
            QCOMPARE(saveCategories(read, names).outcome, Outcome::Saved);
            QCOMPARE(contents(categoriesPath()), bytes);
        }
        for (size_t k = 1; k <= categoryCount; k += 1)
            names[k] = QStringLiteral("New %1").arg(k);
        QCOMPARE(saveCategories(read, names).outcome, Outcome::Saved);
        QCOMPARE(contents(categoriesPath()), renamed(bytes, known));
        QCOMPARE(Module1.categoryName[33], "New 33");
        QVERIFY(readCategories().ok());
    }

    void save_beginsAFileAndEndsABrokenOne()
    {
        const TestFolder folder;
        const QStringList all = allNames();
        CategoriesReading read = readCategoriesOf(".");
        QCOMPARE(saveCategories(read, usualCategories()).outcome, Outcome::Saved);
        for (const QByteArray &bytes : {QByteArray(), QByteArray("\r\n"), fileOfNames(12).chopped(7),
                                        with("\"110\",", "\"110\""), with(" [", "\r\n[")}) {
            put(categoriesPath(), bytes);
            read = readCategoriesOf(".");
            QCOMPARE(isUnderstood(read), bytes.size() < 200);
            QCOMPARE(saveCategories(read, namesOf(all)).outcome, Outcome::Saved);
            QCOMPARE(contents(categoriesPath()), fileOfNames(categoryCount));
        }
    }

    void save_givesEveryNameAsTheReaderExpectsIt()
    {
        const TestFolder folder;
        put(categoriesPath(), fileOfNames(categoryCount).replace("110", "1\\0"));
        CategoriesReading read = readCategoriesOf(".");
        CategoryNames names = read.table.name;
        const QStringList typed = {"a \"b\" \\", "1\r\n2\t3", "Dvo\u0159\u00e1k \u20ac \U0001F3B5", "];", ""};
        std::copy(typed.begin(), typed.end(), names.begin() + 1);
        QCOMPARE(saveCategories(read, names).outcome, Outcome::Saved);
        const QStringList carried = {"a 'b' /", "1 2 3", "Dvor\u00e1k \u20ac ", "];", ""};
        const CategoryTable table = readCategoriesOf(".").table;
        QCOMPARE(table.known, categoryCount);
        QCOMPARE(QStringList(&table.name[1], &table.name[6]), carried);
        QCOMPARE(table.name[10], "1\\0"); // which nobody typed now
    }

    void save_losesNothingOfOthers()
    {
        const TestFolder folder;
        const QByteArray whole = fileOfNames(categoryCount), other = with("110", "Tango");
        put(categoriesPath(), whole);
        CategoriesReading read = readCategoriesOf(".");
        put(categoriesPath(), other);
        CategoriesSaving saving = saveCategories(read, usualCategories());
        QCOMPARE(saving.outcome, Outcome::Changed);
        QCOMPARE(contents(categoriesPath()), other);
        QCOMPARE(saving.onDisk.table.name[10], "Tango");
        {
            const FullDisk disk(100);
            QCOMPARE(saveCategories(saving.onDisk, usualCategories()).outcome, Outcome::NotWritten);
        }
        QCOMPARE(contents(categoriesPath()), other);
        QCOMPARE(saveCategories(saving.onDisk, usualCategories()).outcome, Outcome::Saved);
        QFile::remove(categoriesPath());
        QCOMPARE(saveCategories(read, read.table.name).outcome, Outcome::Saved);
        QCOMPARE(contents(categoriesPath()), whole);
        QFile::remove(categoriesPath());
        QVERIFY(QDir().mkdir(categoriesPath()));
        QCOMPARE(saveCategories(read, read.table.name).outcome, Outcome::NotRead);
    }
};

QTEST_APPLESS_MAIN(CategoriesFileTest)
#include "categories_file_test.moc"

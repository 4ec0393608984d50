#include "archive/Module1.h"
#include "audio/categories_writer.h"
#include "support/test_folder.h"

using Outcome = CategoriesSaving::Outcome;

static const QString path = "spartiti/generi.js";

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

static CategoriesReading readingOf(const QByteArray &file)
{
    put(path, file);
    return readCategoriesOf(".");
}

using Reading = std::tuple<QByteArray, int, int>; // a file, how many names it gives, its first bad line

class CategoriesFileTest : public FolderTest
{
    Q_OBJECT
private slots:
    void file_givesNamesUpToItsFirstBadLine_data()
    {
        const QByteArray whole = fileOfNames(categoryCount);
        tableOf<Reading>(
            {{"whole", {whole, 33, 0}},
             {"blank lines at the end", {whole + "\r\n\r\n", 33, 0}},
             {"line ends of old", {QByteArray(whole).replace("\r\n", "\r"), 33, 0}},
             {"too few, line ends of Unix", {fileOfNames(12).replace("\r\n", "\n"), 12, 14}},
             {"too few, no comma", {fileOfNames(12).replace("112\",", "112\""), 12, 13}},
             {"too few, blank lines", {fileOfNames(12) + QByteArray("\r\n").repeated(99), 12, 14}},
             {"empty", {"", 0, 1}},
             {"head on two lines", {with(" [", " \r\n["), 0, 2}},
             {"name in the head's line", {with("[\r\n", "["), 0, 1}},
             {"no comma, line ends of old", {with("\"110\",", "\"110\"").replace("\r\n", "\r"), 10, 11}},
             {"two in a line, one comma", {with("\"110\",\r\n\"111\",", "\"110\",\"111\""), 10, 11}},
             {"text between two in a line", {with("\"110\",\r\n", "\"110\", a,"), 10, 11}},
             {"blank line", {with("\"110\"", "\r\n\"110\""), 9, 11}},
             {"no first quote", {with("\"110\"", "110\""), 9, 11}},
             {"no last quote", {with("\"110\"", "\"110"), 9, 11}},
             {"no last quote in the last", {whole.chopped(9), 32, 34}}});
    }
    void file_givesNamesUpToItsFirstBadLine()
    {
        const auto [bytes, known, badLine] = tableRow<Reading>();
        Module1.categoryName.fill("old");
        put(path, bytes);
        const Result result = readCategories();
        const CategoryTable table = categoriesIn(bytes);
        QCOMPARE(table.badLine, badLine);
        QCOMPARE(table.known, known);
        for (int k = 1; k <= categoryCount; k += 1)
            QCOMPARE(Module1.categoryName[size_t(k)], k <= known ? allNames()[k - 1] : QString::number(k));
        QCOMPARE(Module1.categoryName[0] + Module1.categoryName[34], "oldold");
        QCOMPARE(result.ok(), badLine == 0);
        QVERIFY(result.ok() || result.reason.contains(QStringLiteral("line %1").arg(badLine)));
    }

    // Renamed or not, all else in the file stays as it was.
    void save_changesTheNamesAlone_data()
    {
        const QByteArray whole = fileOfNames(categoryCount);
        const auto otherEnds = QByteArray(whole).replace("\r\n", "\n").replace(" ];\n", " ];\r\n");
        tableOf<QByteArray>(
            {{"whole", whole},
             {"40 names", QByteArray(whole).replace(" ];", linesOf("34|35|36|37|38|39|40") + " ];")},
             {"a remark", with("\"110\",", "  \"110\", // ten")},
             {"other line ends", otherEnds},
             {"too few", fileOfNames(12) + "\r\n"},
             {"none", fileOfNames(0)}});
    }
    void save_changesTheNamesAlone()
    {
        const auto bytes = tableRow<QByteArray>();
        CategoriesReading read = readingOf(bytes);
        QVERIFY(isUnderstood(read));
        CategoryNames names = read.table.name;
        if (read.result.ok()) {
            QCOMPARE(saveCategories(read, names).outcome, Outcome::Saved);
            QCOMPARE(contents(path), bytes);
        }
        QByteArray renamed = bytes;
        QByteArray added;
        for (int k = 1; k <= categoryCount; k += 1) {
            names[size_t(k)] = QString("New %1").arg(k);
            const QByteArray before = linesOf(allNames()[k - 1]).chopped(3),
                             after = linesOf(names[size_t(k)]);
            if (k <= read.table.known)
                renamed.replace(renamed.indexOf(before), before.size(), after.chopped(3));
            else
                added += after;
        }
        renamed.insert(renamed.indexOf(" ];\r\n"), added);
        QCOMPARE(saveCategories(read, names).outcome, Outcome::Saved);
        QCOMPARE(contents(path), renamed);
        QCOMPARE(Module1.categoryName[33], "New 33");
    }

    void save_beginsAFileAndEndsABrokenOne()
    {
        const QByteArray whole = fileOfNames(categoryCount);
        for (const QByteArray &bytes :
             {QByteArray(), QByteArray("\r\n"), fileOfNames(12).chopped(7), fileOfNames(12).chopped(6),
              with("\"110\",", "\"110\""), with(" [", "\r\n[")}) {
            CategoriesReading read = readingOf(bytes);
            QCOMPARE(isUnderstood(read), bytes.size() < 200);
            QCOMPARE(saveCategories(read, categoriesIn(whole).name).outcome, Outcome::Saved);
            QCOMPARE(contents(path).replace("\r\"", "\r\n\""), whole); // half a line end is one
        }
    }

    void save_givesEveryNameAsTheReaderExpectsIt()
    {
        CategoriesReading read = readingOf(fileOfNames(categoryCount).replace("106", "1\\6"));
        CategoryNames names = read.table.name;
        const QStringList typed = {"a \"b\" \\", "1\r\n2\t3", "Dvořák € \U0001F3B5", "];", ""};
        std::copy(typed.begin(), typed.end(), names.begin() + 1);
        QCOMPARE(saveCategories(read, names).outcome, Outcome::Saved);
        const QString carried = "a 'b' /|1 2 3|Dvorák € |];||1\\6"; // the last of which nobody typed now
        QVERIFY(contents(path).startsWith("var generi = [\r\n" + linesOf(carried)));
    }

    void save_losesNothingOfOthers()
    {
        const QByteArray whole = fileOfNames(categoryCount), other = with("110", "Tango");
        CategoriesReading read = readingOf(whole);
        put(path, other);
        CategoriesSaving saving = saveCategories(read, usualCategories());
        QCOMPARE(saving.outcome, Outcome::Changed);
        {
            const FullDisk disk(100);
            QCOMPARE(saveCategories(saving.onDisk, usualCategories()).outcome, Outcome::NotWritten);
        }
        QCOMPARE(contents(path), other);
        QCOMPARE(saveCategories(saving.onDisk, usualCategories()).outcome, Outcome::Saved);
        QVERIFY(QFile::remove(path));
        QCOMPARE(saveCategories(read, read.table.name).outcome, Outcome::Saved);
        QCOMPARE(contents(path), whole);
        QVERIFY(QFile::remove(path) && QDir().mkdir(path));
        QCOMPARE(saveCategories(read, read.table.name).outcome, Outcome::NotRead);
    }
};

QTEST_GUILESS_MAIN(CategoriesFileTest)
#include "categories_file_test.moc"

#include "archive/Module1.h"
#include "audio/categories_file.h"
#include "files/data_folder.h"
#include "support/test_folder.h"

#include <QTest>

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
        const auto [result, names] = readCategoriesOf("other");
        QCOMPARE(names.badLine, badLine);
        QCOMPARE(names.known, known);
        for (int k = 1; k <= categoryCount; k += 1)
            QCOMPARE(names.name[size_t(k)], k <= known ? allNames()[k - 1] : QString::number(k));
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
};

QTEST_APPLESS_MAIN(CategoriesFileTest)
#include "categories_file_test.moc"

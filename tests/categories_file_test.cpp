#include "archive/Module1.h"
#include "audio/categories_file.h"
#include "support/test_folder.h"

#include <QDir>
#include <QTest>

static QStringList numbered(const QString &text, int from, int to)
{
    QStringList names;
    for (int k = from; k <= to; k += 1)
        names += text.arg(k);
    return names;
}

// A file of the usual layout.
static QByteArray fileOf(const QStringList &names)
{
    return "var generi = [\r\n\"" + names.join("\",\r\n\"").toLatin1() + "\",\r\n ];\r\n";
}

class CategoriesFileTest : public QObject
{
    Q_OBJECT
private slots:
    void file_givesItsNamesAndNumbersForTheRest_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QStringList>("names");
        const QStringList all = numbered("Name %1", 1, 33);
        const QStringList odd = QStringList({"a, b; c", "", "Città", "d'e"}) + numbered("%1th", 5, 33);
        QTest::newRow("200 names") << fileOf(numbered("Name %1", 1, 200)) << all;
        QTest::newRow("commas, accents, empty") << fileOf(odd) << odd;
        QTest::newRow("no closing line") << fileOf(all).chopped(5) << all;
        QTest::newRow("last line has no end") << fileOf(all).chopped(8) << all;
        QTest::newRow("32 names") << fileOf(all.first(32)) << all.first(32);
        QTest::newRow("2 names, blank lines") << fileOf(all.first(2)) + "\r\n\r\n" << all.first(2);
        QTest::newRow("empty") << QByteArray() << QStringList();
    }
    void file_givesItsNamesAndNumbersForTheRest()
    {
        QFETCH(QByteArray, file);
        QFETCH(QStringList, names);
        const TestFolder folder;
        put("spartiti/generi.js", file);
        Module1.categoryName.fill("old");
        const Result read = readCategories();
        const int count = static_cast<int>(names.size());
        QCOMPARE(QStringList(&Module1.categoryName[1], &Module1.categoryName[34]),
                 names + numbered("%1", count + 1, categoryCount));
        QCOMPARE(Module1.categoryName[34], "old");
        QCOMPARE(read.reason,
                 count == 33 ? QString() : QStringLiteral("it holds %1 names, not 33").arg(count));
    }

    void fileThatCannotBeRead_givesNumbers()
    {
        const TestFolder folder;
        QCOMPARE(readCategories().kind, Result::Kind::Missing);
        QDir().mkpath("spartiti/generi.js");
        QCOMPARE(readCategories().kind, Result::Kind::Unreadable);
        QCOMPARE(Module1.categoryName[33], "33");
    }
};

QTEST_APPLESS_MAIN(CategoriesFileTest)
#include "categories_file_test.moc"

#include "archive/Module1.h"
#include "audio/categories_file.h"
#include "support/test_folder.h"

#include <QTest>

static QStringList numbers(int from, int to)
{
    QStringList numbers;
    for (int k = from; k <= to; k += 1)
        numbers += QString::number(k);
    return numbers;
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
        const QStringList all = numbers(101, 133);
        const QStringList odd = QStringList({"a, b; c", "", "Città", "d'e"}) + numbers(205, 233);
        QTest::newRow("200 names") << fileOf(numbers(101, 300)) << all;
        QTest::newRow("commas, accents, empty") << fileOf(odd) << odd;
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
                 names + numbers(count + 1, categoryCount));
        QCOMPARE(Module1.categoryName[34], "old");
        QCOMPARE(read.reason,
                 count == 33 ? QString() : QStringLiteral("it holds %1 names, not 33").arg(count));
    }
};

QTEST_APPLESS_MAIN(CategoriesFileTest)
#include "categories_file_test.moc"

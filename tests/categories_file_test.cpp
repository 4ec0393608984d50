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

class CategoriesFileTest : public QObject
{
    Q_OBJECT
private slots:
    void file_givesItsNamesAndNumbersForTheRest()
    {
        const QStringList all = QStringList({"a, b; c", "", "Città", "d'e"}) + numbers(105, 133);
        const QByteArray whole = fileOf("generi", linesOf(all.join('|')));
        const std::pair<QByteArray, int> rows[] = {
            {fileOf("generi", linesOf(all.join('|')).repeated(6)), 33},
            {whole.chopped(8), 33}, // the last line has no end
            {fileOf("generi", linesOf(all.first(2).join('|'))) + "\r\n\r\n", 2},
            {{}, 0},
        };
        for (const auto &[bytes, count] : rows) {
            const TestFolder folder;
            put("spartiti/generi.js", bytes);
            Module1.categoryName.fill("old");
            QCOMPARE(readCategories().ok(), count == categoryCount);
            QCOMPARE(QStringList(&Module1.categoryName[1], &Module1.categoryName[34]),
                     all.first(count) + numbers(count + 1, categoryCount));
            QCOMPARE(Module1.categoryName[34], "old");
        }
    }
};

QTEST_APPLESS_MAIN(CategoriesFileTest)
#include "categories_file_test.moc"

#include "text/folding.h"

#include <QTest>

static bool finds(const QString &typed, const QString &text)
{
    const Query query(typed);
    const Folded folded = fold(text);
    return std::all_of(query.words().begin(), query.words().end(),
                       [&](const Folded &word) { return occursIn(folded, word); });
}

class FoldingTest : public QObject
{
    Q_OBJECT
private slots:
    void aQuery_findsWhatAPersonMeans()
    {
        const std::tuple<const char *, const char *, bool> rows[] = {
            {"", "anything", true},
            {"royksopp", "Röyksopp", true},
            {"röyksopp", "Royksopp", false},
            {"èric", "Éric Satie", false},
            {"éric", "Eric, then Éric", true}, // the first place does not end the search
            {"e\u0301ric", "Éric Satie", true},
            {"straße", "STRASSE", true},
            {"oeuvre", "Œuvre", true},
            {"ægir", "Aegir", true},
            {"søren", "Soren", true},
            {"l'amour", "L’Amour", true},
            {"\"la mer\"", "Mer la", false},
            {"\"la mer", "La Mer", true},
            {"\" mer\"", "Mer", false},
            {"debussy \"la mer\"", "La mer, Debussy", true},
        };
        for (const auto &[typed, text, found] : rows)
            QVERIFY2(finds(typed, text) == found, qPrintable(QString("%1 in %2").arg(typed, text)));
    }

    void partsFound_coverWholeCharacters()
    {
        const std::tuple<const char *, const char *, QList<TextPart>> rows[] = {
            {"str se", "Straße, Strand", {{0, 3}, {4, 2}, {8, 3}}}, // half of ß is found
            {"ana", "banana", {{1, 5}}}, // places that overlap
            {"la mer", "La mer", {{0, 2}, {3, 3}}},
            {"œ", "Oeuvre, Œuvre", {{0, 2}, {8, 1}}},
        };
        for (const auto &[typed, text, parts] : rows)
            QCOMPARE(partsFound(QString(text), Query(typed)), parts);
    }
};

QTEST_GUILESS_MAIN(FoldingTest)
#include "folding_test.moc"

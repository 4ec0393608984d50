#include "archive/archive_file.h"
#include "songs/edits.h"
#include "songs/song_table.h"
#include "support/test_folder.h"

#include <QTest>

#include <memory>

// The list on an archive of these records, each "title|author|tags|category".
struct List {
    TestFolder folder;
    Edits edits;
    std::unique_ptr<SongTable> table;

    explicit List(const QStringList &records)
    {
        putArchive(records);
        if (!loadArchive().result.ok())
            qFatal("no archive");
        edits.loaded();
        table = std::make_unique<SongTable>(edits);
    }

    // The numbers of the songs that are shown, in their order.
    QString shown() const
    {
        QStringList numbers;
        for (int row = 0; row < table->rowCount(); row += 1)
            numbers += QString::number(table->songAt(row));
        return numbers.join(' ');
    }
    QString text(int row, SongColumn column) const
    {
        return table->index(row, static_cast<int>(column)).data().toString();
    }
};

static QByteArray midiOf(int record)
{
    return linesOf(QString::number(record) + QString("|1,2,3").repeated(16));
}

class SongTableTest : public QObject
{
    Q_OBJECT
private slots:
    void find_searchesAllThatNamesASong()
    {
        List list({"La mer|Debussy|sea|1", "Solo|Nils Frahm|piano sea|2", "12 Songs|||0", "Straße|Éric||7"});
        put("spartiti/generi.js", fileOf("generi", linesOf("Jazz|Classic" + QString("|x").repeated(31))));
        list.table->readDisk();
        const std::tuple<const char *, const char *> rows[] = {
            {"", "1 2 3 4"}, {"sea", "1 2"},       {"frahm nils solo", "2"},   {"jazz", "1"},
            {"4", "4"},      {"2", "2 3"},         {"classic sea piano", "2"}, {"eric strasse", "4"},
            {"èric", ""},    {"mer debussy", "1"}, {"\"mer debussy\"", ""},    {"\"la mer\"", "1"},
        };
        for (const auto &[typed, found] : rows) {
            list.table->find(typed);
            QCOMPARE(list.shown(), found);
        }
    }

    void whatLiesOnTheDisk_isRead()
    {
        List list({"A|||33", "B|||9", "C|||99"});
        for (const char *name :
             {"2L.jpg", "1R.jpg", "03L.jpg", "3l.jpg", "L.jpg", "99999999999L.jpg", "audio/3.mp3"})
            put("spartiti/" + QString(name), "x");
        put("spartiti/midi.js", fileOf("midi", midiOf(1) + midiOf(77)));
        put("spartiti/playlist.js", fileOf("playlist", "\"P\",\"1,1,#\",\r\n\"Q\",\"1,3,#\",\r\n"));
        list.table->readDisk();
        QStringList rows;
        for (int row = 0; row < 3; row += 1) {
            QString cells;
            for (int column = 4; column < songColumns; column += 1)
                cells += '|' + list.text(row, SongColumn(column));
            rows += cells;
        }
        QCOMPARE(rows.join(' '), "|33||✓||✓|2 |9|✓|||| |99|||✓||1");
        QCOMPARE(list.table->index(0, 9).data(Qt::ToolTipRole).toString(), "P\nQ");
        QVERIFY(list.table->disk().failures().isEmpty());
        put("spartiti/midi.js", fileOf("midi", midiOf(1) + linesOf("2|1,2,3")));
        list.table->readDisk();
        QVERIFY(list.table->disk().failures().join("").startsWith("spartiti/midi.js is damaged"));
    }

    void sorting_isByNumbersOrAsInADictionary()
    {
        List list({"Song 10|b|x|2", "song 9|a|x|1", "Étude|b|x|2", "Zero||x|2"});
        list.table->readDisk();
        const std::tuple<SongColumn, const char *, const char *> rows[] = {
            {SongColumn::Number, "1 2 3 4", "4 3 2 1"},
            {SongColumn::Title, "3 2 1 4", "4 1 2 3"},
            {SongColumn::Author, "4 2 1 3", "1 3 2 4"}, // equal ones stand by their numbers
            {SongColumn::Category, "2 1 3 4", "1 3 4 2"},
        };
        for (const auto &[column, up, down] : rows) {
            list.table->sort(static_cast<int>(column), Qt::AscendingOrder);
            QCOMPARE(list.shown(), up);
            list.table->sort(static_cast<int>(column), Qt::DescendingOrder);
            QCOMPARE(list.shown(), down);
        }
    }
};

QTEST_GUILESS_MAIN(SongTableTest)
#include "song_table_test.moc"

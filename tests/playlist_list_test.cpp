// The list being edited, without a window.

#include "archive/Module1.h"
#include "playlists/edited_list.h"

#include <QTest>

#include <algorithm>
#include <numeric>
#include <random>

// A list with what a window shows of it.
struct ShownList {
    QStringList rows;
    QList<int> selected;
    EditedList list{[this](const RowChange &change) {
        rows = rows.first(change.first) + QStringList(change.inserted)
            + rows.sliced(change.first + change.removed);
        for (int row = change.first; row < change.first + change.inserted; row += 1)
            rows[row] = list.songs()[row].row;
        selected = change.selected.value_or(selected);
    }};

    QList<int> recordsOf(const QList<int> &some) const
    {
        QList<int> records;
        for (const int row : some)
            records += list.songs()[row].record;
        return records;
    }
};

// The same as plainly as can be: every list that there was, and which of them stands.
struct PlainList {
    QList<QList<int>> lists{{}};
    QStringList headings{""};
    qsizetype now = 0;

    const QList<int> &songs() const { return lists[now]; }

    void become(const QList<int> &songs, const QString &heading)
    {
        if (songs == lists[now] && heading == headings[now])
            return;
        now += 1;
        lists.resize(now);
        headings.resize(now);
        lists += songs;
        headings += heading;
    }

    void remove(const QList<int> &rows)
    {
        QList<int> left;
        for (int row = 0; row < songs().size(); row += 1)
            left += rows.contains(row) ? QList<int>() : QList<int>{songs()[row]};
        become(left, headings[now]);
    }

    void move(const QList<int> &rows, int place)
    {
        QList<int> above, moved, below;
        for (int row = 0; row < songs().size(); row += 1)
            (rows.contains(row) ? moved : row < place ? above : below) += songs()[row];
        become(above + moved + below, headings[now]);
    }

    void shift(QList<int> rows, int by)
    {
        QList<int> list = songs();
        if (by > 0)
            std::reverse(rows.begin(), rows.end());
        if (rows.isEmpty() || rows.first() + by < 0 || rows.first() + by >= list.size())
            return;
        for (const int row : rows)
            std::swap(list[row], list[row + by]);
        become(list, headings[now]);
    }
};

// Plays the same steps on both, taken by chance.
class Game
{
public:
    void step()
    {
        const int size = static_cast<int>(plain.songs().size());
        QList<int> rows;
        for (int row = 0; row < size; row += 1) {
            if (below(4) == 0)
                rows += row;
        }
        play(size > 20 ? 0 : below(10), rows, below(size + 1));
    }

    void compare() const
    {
        QStringList rows;
        QString text;
        for (const int n : plain.songs()) {
            rows += QStringLiteral("t%1 _%1").arg(n);
            text += QString::number(n) + ',';
        }
        QCOMPARE(shown.list.text(), text + '#');
        QCOMPARE(shown.rows, rows);
        QCOMPARE(heading, plain.headings[plain.now]);
    }

private:
    int below(int end) { return static_cast<int>(chance() % static_cast<unsigned>(end)); }

    QList<int> someSongs()
    {
        QList<int> songs(1 + below(3));
        std::iota(songs.begin(), songs.end(), lastSong + 1);
        lastSong += static_cast<int>(songs.size());
        return songs;
    }

    static QList<ListedSong> listed(const QList<int> &records)
    {
        QList<ListedSong> songs;
        for (const int n : records)
            songs += addedSong(n);
        return songs;
    }

    void add(const QList<int> &songs, std::optional<int> place)
    {
        shown.list.add(listed(songs), place);
        const qsizetype before = place.value_or(plain.songs().size());
        plain.become(plain.songs().first(before) + songs + plain.songs().sliced(before), heading);
        if (place)
            QCOMPARE(shown.recordsOf(shown.selected), songs);
    }

    void begin(const QList<int> &songs, QString other)
    {
        plain.become(songs, other);
        shown.list.replaceAll(listed(songs), [this, other]() mutable { std::swap(heading, other); });
    }

    // What was moved is what is selected afterwards.
    void move(const QList<int> &rows, const std::function<void()> &onList,
              const std::function<void()> &onPlain)
    {
        const QList<int> moved = shown.recordsOf(rows);
        const qsizetype before = plain.now;
        onList();
        onPlain();
        if (plain.now != before)
            QCOMPARE(shown.recordsOf(shown.selected), moved);
    }

    void play(int kind, const QList<int> &rows, int place)
    {
        EditedList &list = shown.list;
        switch (kind) {
        case 0:
            list.remove(rows);
            return plain.remove(rows);
        case 1:
            return add(someSongs(), {});
        case 2:
            return add(someSongs(), place);
        case 3:
            return begin(someSongs(), "heading of " + QString::number(lastSong));
        case 4:
            return move(
                rows, [&] { list.move(rows, place); }, [&] { plain.move(rows, place); });
        case 5:
            return move(
                rows, [&] { list.moveUp(rows); }, [&] { plain.shift(rows, -1); });
        case 6:
            return move(
                rows, [&] { list.moveDown(rows); }, [&] { plain.shift(rows, 1); });
        case 7:
            list.redo();
            plain.now = qMin(plain.now + 1, plain.lists.size() - 1);
            return;
        default:
            list.undo();
            plain.now = qMax(plain.now - 1, qsizetype(0));
        }
    }

    ShownList shown;
    PlainList plain;
    QString heading;
    int lastSong = 0;
    std::mt19937 chance{20};
};

class PlaylistListTest : public QObject
{
    Q_OBJECT
private slots:
    void init()
    {
        Module1 = {};
        Module1.recCount = 9000;
        for (size_t n = 1; n <= 9000; n += 1) {
            Module1.recNumber[n] = QString::number(n);
            Module1.recTitle[n] = "t" + Module1.recNumber[n];
        }
    }

    void thousandsOfSteps_areThoseOfAPlainList()
    {
        Game game;
        for (int i = 0; i < 5000 && !QTest::currentTestFailed(); i += 1) {
            game.step();
            game.compare();
        }
    }

    void songsOfOneTitle_keepTheirPlaces()
    {
        ShownList shown;
        Module1.recTitle[7] = Module1.recTitle[8] = "twin";
        QCOMPARE(recordOfTitle("twin"), 8);
        shown.list.add({storedSong(7), storedSong(8), storedSong(7)});
        shown.list.moveDown({0});
        shown.list.remove({2});
        QCOMPARE(shown.list.text(), "8,7,#");
        shown.list.undo();
        shown.list.undo();
        QCOMPARE(shown.list.text(), "7,8,7,#");
        QCOMPARE(shown.selected, QList<int>{0});
    }

    void losses_areWhatHasNoNumberNow_untilAccepted()
    {
        EditedList list([](const RowChange &) {});
        const auto losses = [&] {
            const EditedList::Losses found = list.losses();
            return QPair(found.notInArchive, found.notYetSaved);
        };
        Module1.recNumber[8999] = Module1.recNumber[9000] = "";
        list.add({storedSong(1), storedSong(8999), storedSong(9000), storedSong(0), storedSong(9001)});
        QCOMPARE(losses(), qMakePair(2, 2));
        Module1.recNumber[9000] = "9000";
        QCOMPARE(losses(), qMakePair(2, 1));
        QCOMPARE(list.text(), "1,,9000,,,#");
        list.remove({3});
        QCOMPARE(losses(), qMakePair(1, 1));
        list.acceptLosses();
        QCOMPARE(losses(), qMakePair(0, 0));
        list.add({storedSong(9999)});
        QCOMPARE(losses(), qMakePair(1, 0));
    }

    void decodeSongList_passesOverWhatIsNoRecordNumber()
    {
        QCOMPARE(decodeSongList("12,,x,-1,2.5,0, 7 ,9999,10000,99999999999,007,8"),
                 QList<int>({12, 0, 7, 9999, 7}));
    }
};

QTEST_APPLESS_MAIN(PlaylistListTest)
#include "playlist_list_test.moc"

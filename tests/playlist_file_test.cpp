#include "files/code_page.h"
#include "playlists/playlist_file.h"
#include "playlists/song_list.h"
#include "playlists/title_order.h"
#include "support/script.h"
#include "support/test_folder.h"

#include <QTest>

using Kind = Result::Kind;

static const QString path = "spartiti/playlist.js";
static const QByteArray twoLists = "\"Sunday set\",\"12,3,47,#\",\r\n\"Gig, \x80 \x9d\xe8',;\",\"#\",\r\n";

static QByteArray fileOf(const QByteArray &lines)
{
    return "var playlist = [\r\n" + lines + " ];\r\n";
}

static QByteArray manyLists(int count)
{
    QByteArray lines;
    for (int i = 1; i <= count; i += 1)
        lines += "\"" + QByteArray::number(i) + "\",\"1,#\",\r\n";
    return lines;
}

// The playlists in memory as "name|songs".
static QStringList lists(const Playlists &playlists)
{
    QStringList all;
    for (size_t i = 1; i <= static_cast<size_t>(playlists.count()); i += 1)
        all += playlists.playlistName[i] + '|' + playlists.playlistSongs[i];
    return all;
}

// What a file reads as, or the reason for which it does not.
static QStringList reading(const QByteArray &bytes, Playlists &playlists)
{
    put(path, bytes);
    const Result result = readPlaylistFile(playlists);
    return result.ok() ? lists(playlists) : QStringList(result.reason);
}

class PlaylistFileTest : public QObject
{
    Q_OBJECT
private slots:
    void writePlaylistFile_keepsEveryByte()
    {
        TestFolder folder;
        const QByteArray field = '"' + everyByte() + "\",";
        const QByteArray file = fileOf(field + field + "\r\n" + twoLists);
        Playlists playlists;
        reading(file, playlists);
        const QString name = fromCodePage(everyByte());
        QVERIFY(writePlaylistFile(playlists, name, name, playlists.songsOf(name)).ok());
        QCOMPARE(contents(path), file);
    }

    void readPlaylistFile_readsOrRefuses_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QStringList>("expected");
        const auto bad = [](const QString &reason) { return QStringList(reason); };
        const QByteArray first = "var playlist = [\r\n";
        const QStringList both = {"Sunday set|12,3,47,#", "Gig, € \u009dè',;|#"};
        QTest::newRow("two") << fileOf(twoLists) << both;
        QTest::newRow("no closing line") << first + twoLists << both;
        QTest::newRow("no last comma") << first + twoLists.chopped(3) << both;
        QTest::newRow("no name") << fileOf("\"\",\"1,#\",\r\n") << QStringList("|1,#");
        QTest::newRow("0 bytes") << QByteArray() << bad("is damaged in its first line");
        QTest::newRow("all in a line") << first.chopped(2) + twoLists << bad("is damaged in its first line");
        QTest::newRow("cut songs") << first + twoLists.first(20) << bad("is damaged at playlist 1");
        QTest::newRow("goes on") << fileOf("\"];\",\"1,#\",\r\n") << bad("goes on behind its closing line");
        QTest::newRow("1000") << fileOf(manyLists(1000)) << bad("holds more than 999 playlists");
    }

    void readPlaylistFile_readsOrRefuses()
    {
        QFETCH(QByteArray, file);
        TestFolder folder;
        Playlists playlists;
        reading(fileOf("\"before\",\"#\",\r\n"), playlists);
        QTEST(reading(file, playlists), "expected");
        QCOMPARE(playlists.playlistName[static_cast<size_t>(playlists.playlistSlot)], "];");
        QCOMPARE(contents(path), file);
    }

    void cutOrChangedAnywhere_losesNoPlaylist()
    {
        TestFolder folder;
        Playlists playlists;
        const QByteArray whole = fileOf(twoLists);
        const QStringList both = reading(whole, playlists);
        QVERIFY(deletePlaylist(playlists, "no such name").ok());
        QCOMPARE(contents(path), whole);
        for (qsizetype i = 0; i < whole.size(); i += 1) {
            put(path, whole.first(i));
            if (readPlaylistFile(playlists).ok())
                QCOMPARE(lists(playlists), both.first(whole.first(i).count("#\"")));
            for (const char byte : {'"', ',', '\n', ' ', ']'}) {
                put(path, QByteArray(whole).replace(i, 1, QByteArray(1, byte)));
                if (!readPlaylistFile(playlists).ok())
                    continue;
                const QStringList read = lists(playlists);
                QCOMPARE(read.size(), 2);
                QVERIFY(deletePlaylist(playlists, "no such name").ok());
                QCOMPARE(reading(contents(path), playlists), read);
            }
        }
    }

    void writePlaylistFile_replacesWhatIsShownOrAdds()
    {
        TestFolder folder;
        Playlists playlists;
        reading(fileOf("\"a\",\"1,#\",\r\n\"b\",\"2,#\",\r\n\"a\",\"3,#\",\r\n"), playlists);
        QVERIFY(writePlaylistFile(playlists, "a", "a", "9,#").ok());
        QCOMPARE(lists(playlists), QStringList({"a|9,#", "b|2,#", "a|9,#"}));
        QVERIFY(writePlaylistFile(playlists, "A", "A", "#").ok());
        QVERIFY(writePlaylistFile(playlists, "è, 'x'", "a", "4,#").ok());
        QCOMPARE(contents(path),
                 fileOf("\"a\",\"9,#\",\r\n\"b\",\"2,#\",\r\n\"a\",\"9,#\",\r\n"
                        "\"A\",\"#\",\r\n\"\xe8, 'x'\",\"4,#\",\r\n"));
        Playlists one;
        reading(fileOf(twoLists.first(27)), one);
        QVERIFY(deletePlaylist(one, "Sunday set").ok()); // the only one
        QCOMPARE(contents(path), fileOf({}));
        QCOMPARE(one.playlistSlot, 1);
        QVERIFY(deletePlaylist(playlists, "a").ok());
        QCOMPARE(contents(path), fileOf("\"b\",\"2,#\",\r\n\"A\",\"#\",\r\n\"\xe8, 'x'\",\"4,#\",\r\n"));
        const Script script(path, "playlist");
        if (!script.unavailable())
            QCOMPARE(script.strings(), QStringList({"b", "2,#", "A", "#", "è, 'x'", "4,#"}));
    }

    void aFullFileOrDisk_changesNothing()
    {
        TestFolder folder;
        const QByteArray full = fileOf(manyLists(999));
        Playlists playlists;
        reading(full, playlists);
        QCOMPARE(writePlaylistFile(playlists, "1000", "1000", "#").kind, Kind::Refused);
        {
            const FullDisk fullDisk(30);
            QCOMPARE(writePlaylistFile(playlists, "7", "7", "#").kind, Kind::Unwritable);
            QCOMPARE(deletePlaylist(playlists, "7").kind, Kind::Unwritable);
        }
        QCOMPARE(playlists.songsOf("7"), "1,#");
        QCOMPARE(contents(path), full);
        QCOMPARE(namesIn("spartiti"), QStringList("playlist.js"));
        QVERIFY(writePlaylistFile(playlists, "7", "7", "#").ok());
        QCOMPARE(playlists.songsOf("7"), "#");
    }

    void decodeSongList_passesOverWhatIsNoRecordNumber()
    {
        QCOMPARE(decodeSongList("12,3,47,#"), QList<int>({12, 3, 47}));
        QCOMPARE(decodeSongList(""), QList<int>());
        QCOMPARE(decodeSongList("1,,x,-1,2.5,0, 7 ,9999,10000,32768,99999999999,007,8"),
                 QList<int>({1, 0, 7, 9999, 7}));
    }

    void alphabetical_sortsAsPeopleDo()
    {
        QCOMPARE(alphabetical({"zebra", "élan", "Elan vital", "", "eis", "b", "B", "àncora", "Anna"}),
                 QStringList({"", "àncora", "Anna", "b", "B", "eis", "élan", "Elan vital", "zebra"}));
    }
};

QTEST_APPLESS_MAIN(PlaylistFileTest)
#include "playlist_file_test.moc"

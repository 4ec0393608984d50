#include "playlists/playlist_file.h"
#include "playlists/title_order.h"
#include "support/script.h"
#include "support/test_folder.h"

#include <QTest>

using Kind = Result::Kind;

static const QString path = "spartiti/playlist.js";
static const QByteArray twoLists = "\"Sunday set\",\"12,3,47,#\",\r\n\"Rehearsal, at 5\",\"#\",\r\n";

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

static Playlists readFrom(const QByteArray &bytes)
{
    put(path, bytes);
    Playlists playlists;
    if (!readPlaylistFile(playlists).ok())
        qFatal("not read: %s", bytes.constData());
    return playlists;
}

class PlaylistFileTest : public QObject
{
    Q_OBJECT
private slots:
    void readPlaylistFile_readsOrRefuses_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QStringList>("expected"); // or one text, the reason for which it was not read
        const QByteArray first = "var playlist = [\r\n";
        const QStringList both = {"Sunday set|12,3,47,#", "Rehearsal, at 5|#"};
        QTest::newRow("two") << fileOf(twoLists) << both;
        QTest::newRow("none") << fileOf({}) << QStringList();
        QTest::newRow("no closing line") << first + twoLists << both;
        QTest::newRow("no last comma") << first + twoLists.chopped(3) << both;
        QTest::newRow("lines ended by LF") << fileOf(twoLists).replace("\r", "") << both;
        QTest::newRow("no name") << fileOf("\"\",\"1,#\",\r\n") << QStringList("|1,#");

        const auto bad = [&](const char *row, const QByteArray &file, const QString &reason) {
            QTest::newRow(row) << file << QStringList(reason);
        };
        bad("0 bytes", {}, "is damaged in its first line");
        bad("a list in the first line", "var playlist = [\"A\",\"1,#\",];\r\n",
            "is damaged in its first line");
        bad("cut in a song list", first + twoLists.first(20), "is damaged at playlist 1");
        bad("lost quote", fileOf(twoLists).replace("set\"", "set"), "is damaged at playlist 1");
        bad("named as the end", fileOf("\"];\",\"1,#\",\r\n" + twoLists), "goes on behind its closing line");
        bad("1000", fileOf(manyLists(1000)), "holds more than 999 playlists");
    }

    void readPlaylistFile_readsOrRefuses()
    {
        QFETCH(QByteArray, file);
        QFETCH(QStringList, expected);
        TestFolder folder;
        Playlists playlists = readFrom(fileOf("\"before\",\"#\",\r\n"));
        put(path, file);
        const Result result = readPlaylistFile(playlists);
        QCOMPARE(result.ok() ? lists(playlists) : QStringList(result.reason), expected);
        QCOMPARE(playlists.playlistName[static_cast<size_t>(playlists.playlistSlot)], "];");
        QVERIFY(result.ok() || lists(playlists) == QStringList("before|#"));
        QCOMPARE(contents(path), file);
    }

    void rewriting_isByteIdentical()
    {
        TestFolder folder;
        QByteArray all;
        for (int byte = 1; byte <= 255; byte += 1)
            all += byte == '"' ? QByteArray() : QByteArray(1, static_cast<char>(byte));
        const QByteArray file =
            fileOf('"' + all + "\",\"1, x,,#\",\r\n\"" + QByteArray(10000, 'n') + "\",\"\",\r\n" + twoLists);
        Playlists playlists = readFrom(file);
        QVERIFY(deletePlaylist(playlists, "no such name").ok());
        QCOMPARE(contents(path), file);
    }

    void cutOrChangedAnywhere_losesNoPlaylist()
    {
        TestFolder folder;
        const QByteArray whole = fileOf(twoLists);
        const QStringList both = lists(readFrom(whole));
        for (qsizetype i = 0; i < whole.size(); i += 1) {
            Playlists playlists;
            put(path, whole.first(i));
            if (readPlaylistFile(playlists).ok())
                QCOMPARE(lists(playlists), both.first(whole.first(i).count("#\"")));
            for (const char byte : {'"', ',', '\r', '\n', ' ', ']', 'x', '\0'}) {
                put(path, QByteArray(whole).replace(i, 1, QByteArray(1, byte)));
                if (!readPlaylistFile(playlists).ok())
                    continue;
                const QStringList read = lists(playlists);
                QCOMPARE(read.size(), 2);
                QVERIFY(deletePlaylist(playlists, "no such name").ok() && readPlaylistFile(playlists).ok());
                QCOMPARE(lists(playlists), read);
            }
        }
    }

    void writePlaylistFile_replacesWhatIsShownOrAdds()
    {
        TestFolder folder;
        Playlists playlists = readFrom(fileOf("\"a\",\"1,#\",\r\n\"b\",\"2,#\",\r\n\"a\",\"3,#\",\r\n"));
        QVERIFY(writePlaylistFile(playlists, "a", "a", "9,#").ok());
        QCOMPARE(lists(playlists), QStringList({"a|9,#", "b|2,#", "a|9,#"}));
        QVERIFY(writePlaylistFile(playlists, "A", "A", "#").ok());
        QVERIFY(writePlaylistFile(playlists, "è, 'x'", "a", "4,#").ok());
        QCOMPARE(contents(path),
                 fileOf("\"a\",\"9,#\",\r\n\"b\",\"2,#\",\r\n\"a\",\"9,#\",\r\n"
                        "\"A\",\"#\",\r\n\"\xe8, 'x'\",\"4,#\",\r\n"));
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
        Playlists playlists = readFrom(full);
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

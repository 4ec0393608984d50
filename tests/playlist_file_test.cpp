#include "files/code_page.h"
#include "playlists/playlist_file.h"
#include "playlists/title_order.h"
#include "support/script.h"
#include "support/test_folder.h"

#include <QDir>
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
        QTest::newRow("no last line end") << first + twoLists.chopped(2) << both;
        QTest::newRow("no last comma") << first + twoLists.chopped(3) << both;
        QTest::newRow("first line alone") << first << QStringList();
        QTest::newRow("lines ended by LF") << fileOf(twoLists).replace("\r", "") << both;
        QTest::newRow("empty lines at the end") << fileOf(twoLists) + "\r\n\r\n" << both;
        QTest::newRow("without quotes") << fileOf("Name,#,\r\n") << QStringList("Name|#");
        QTest::newRow("no name") << fileOf("\"\",\"1,#\",\r\n") << QStringList("|1,#");

        const auto bad = [&](const char *row, const QByteArray &file, const QString &reason) {
            QTest::newRow(row) << file << QStringList(reason);
        };
        bad("0 bytes", {}, "is damaged in its first line");
        bad("a list in the first line", "var playlist = [\"A\",\"1,#\",];\r\n",
            "is damaged in its first line");
        bad("cut in a song list", first + twoLists.first(20), "is damaged at playlist 1");
        bad("lost quote", fileOf(twoLists).replace("set\"", "set"), "is damaged at playlist 1");
        bad("quote inside", fileOf("A,1\"2,\r\n"), "is damaged at playlist 1");
        bad("no comma at the end", fileOf(twoLists).replace("#\",\r\n\"R", "#\"\r\n\"R"),
            "is damaged at playlist 1");
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

    void cutAnywhere_losesNoWholePlaylist()
    {
        TestFolder folder;
        const QByteArray whole = fileOf(twoLists);
        const QStringList both = lists(readFrom(whole));
        for (qsizetype size = 0; size < whole.size(); size += 1) {
            put(path, whole.first(size));
            Playlists playlists;
            if (!readPlaylistFile(playlists).ok())
                continue;
            const auto whollyThere = whole.first(size).count("#\"");
            QCOMPARE(lists(playlists), both.first(whollyThere));
        }
    }

    void changedAnywhere_readsTheSameAgain()
    {
        TestFolder folder;
        const QByteArray whole = fileOf(twoLists);
        for (qsizetype i = 0; i < whole.size(); i += 1) {
            for (const char byte : {'"', ',', '\r', '\n', ' ', ']', 'x', '\0'}) {
                QByteArray changed = whole;
                changed[i] = byte;
                put(path, changed);
                Playlists playlists;
                if (!readPlaylistFile(playlists).ok())
                    continue;
                const QStringList read = lists(playlists);
                QVERIFY2(playlists.count() == 2, changed);
                QVERIFY(deletePlaylist(playlists, "no such name").ok() && readPlaylistFile(playlists).ok());
                QCOMPARE(lists(playlists), read);
            }
        }
    }

    void writePlaylistFile_replacesOrAdds_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<QByteArray>("expected");
        const QByteArray a = "\"a\",\"1,#\",\r\n";
        const QByteArray b = "\"b\",\"2,#\",\r\n";
        const QByteArray aNew = "\"a\",\"9,#\",\r\n";
        QTest::newRow("both lines of a name") << "a"
                                              << "a" << aNew + b + aNew;
        QTest::newRow("another one shown") << "a"
                                           << "b" << a + b + a + aNew;
        QTest::newRow("nothing shown") << "a"
                                       << "" << a + b + a + aNew;
        QTest::newRow("case") << "A"
                              << "A" << a + b + a + "\"A\",\"9,#\",\r\n";
        QTest::newRow("signs") << "è, 'x' "
                               << "" << a + b + a + "\"\xe8, 'x' \",\"9,#\",\r\n";
    }

    void writePlaylistFile_replacesOrAdds()
    {
        QFETCH(QString, name);
        QFETCH(QString, shown);
        QFETCH(QByteArray, expected);
        TestFolder folder;
        Playlists playlists = readFrom(fileOf("\"a\",\"1,#\",\r\n\"b\",\"2,#\",\r\n\"a\",\"1,#\",\r\n"));
        QVERIFY(writePlaylistFile(playlists, name, shown, "9,#").ok());
        QCOMPARE(contents(path), fileOf(expected));
        Playlists again;
        QVERIFY(readPlaylistFile(again).ok());
        QCOMPARE(lists(playlists), lists(again));
        QCOMPARE(playlists.playlistSlot, again.playlistSlot);
    }

    void newPlaylists_reachTheViewer()
    {
        TestFolder folder;
        QVERIFY(createPlaylistFile().ok());
        QCOMPARE(contents(path), "var playlist = [\r\n ];\r\n");
        Playlists playlists;
        QVERIFY(writePlaylistFile(playlists, "First", "", "#").ok());
        QVERIFY(writePlaylistFile(playlists, "Città", "", "4,2,#").ok());
        const Script script(path, "playlist");
        if (!script.unavailable())
            QCOMPARE(script.strings(), QStringList({"First", "#", "Città", "4,2,#"}));
        QVERIFY(deletePlaylist(playlists, "First").ok());
        QCOMPARE(contents(path), fileOf("\"Citt\xe0\",\"4,2,#\",\r\n"));
        QCOMPARE(lists(playlists), QStringList("Città|4,2,#"));
    }

    void aFullFile_takesChangesAndNoMore()
    {
        TestFolder folder;
        const QByteArray full = fileOf(manyLists(999));
        Playlists playlists = readFrom(full);
        QCOMPARE(writePlaylistFile(playlists, "1000", "1000", "#").kind, Kind::Refused);
        QCOMPARE(contents(path), full);
        QVERIFY(writePlaylistFile(playlists, "7", "7", "#").ok());
        QCOMPARE(playlists.songsOf("7"), "#");
        QVERIFY(deletePlaylist(playlists, "7").ok());
        QVERIFY(writePlaylistFile(playlists, "1000", "1000", "#").ok());
    }

    void aFullDisk_changesNothing()
    {
        TestFolder folder;
        Playlists playlists = readFrom(fileOf(twoLists));
        const QStringList before = lists(playlists);
        const FullDisk full(30);
        QCOMPARE(writePlaylistFile(playlists, "x", "", "1,#").kind, Kind::Unwritable);
        QCOMPARE(deletePlaylist(playlists, "Rehearsal, at 5").kind, Kind::Unwritable);
        QCOMPARE(lists(playlists), before);
        QCOMPARE(contents(path), fileOf(twoLists));
        QCOMPARE(namesIn("spartiti"), QStringList("playlist.js"));
    }

    void decodeSongList_passesOverWhatIsNoRecordNumber()
    {
        QCOMPARE(decodeSongList("12,3,47,#"), QList<int>({12, 3, 47}));
        QCOMPARE(decodeSongList("#"), QList<int>());
        QCOMPARE(decodeSongList(""), QList<int>());
        QCOMPARE(decodeSongList("5,6"), QList<int>({5}));
        QCOMPARE(decodeSongList("1,,x,-1,2.5,0, 7 ,9999,10000,32768,99999999999,007,"),
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

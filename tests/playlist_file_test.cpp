#include "format/code_page.h"
#include "playlists/playlist_file.h"
#include "playlists/song_list.h"
#include "support/test_folder.h"

#include <QTest>

using Kind = Result::Kind;

static const QString path = "spartiti/playlist.js";
static const QByteArray twoLists = "\"Sunday set\",\"12,3,47,#\",\r\n\"Gig, \x80 \x9d\xe8',;\",\"#\",\r\n";
static const QStringList both = {"Sunday set|12,3,47,#", "Gig, € \u009dè',;|#"};

// What a file reads as, each playlist as "name|songs", or the reason for which it does not.
static QStringList reading(const QByteArray &bytes, Playlists &playlists)
{
    put(path, bytes);
    if (const Result result = readPlaylistFile(playlists); !result.ok())
        return {result.reason};
    QStringList all;
    for (size_t i = 1; i <= static_cast<size_t>(playlists.count()); i += 1)
        all += playlists.playlistName[i] + '|' + playlists.playlistSongs[i];
    return all;
}

class PlaylistFileTest : public QObject
{
    Q_OBJECT
private slots:
    void readPlaylistFile_readsOrRefuses()
    {
        const QByteArray first = fileOf("playlist", "").chopped(5), one = "\"1\",\"1,#\",\r\n";
        const std::pair<QByteArray, QStringList> rows[] = {
            {fileOf("playlist", twoLists), both},
            {first + twoLists.chopped(3), both}, // no closing line and no last comma
            {"", {"is damaged in its first line"}},
            {first.chopped(2) + twoLists, {"is damaged in its first line"}},
            {first + twoLists.first(20), {"is damaged at playlist 1"}},
            {fileOf("playlist", "\"];\",\"1,#\",\r\n"), {"goes on behind its closing line"}},
            {fileOf("playlist", one.repeated(1000)), {"holds more than 999 playlists"}},
        };
        for (const auto &[file, expected] : rows) {
            const TestFolder folder;
            Playlists playlists;
            reading(fileOf("playlist", one), playlists);
            QCOMPARE(reading(file, playlists), expected);
            QCOMPARE(playlists.count(), expected == both ? 2 : 1);
        }
    }

    void cutOrChangedAnywhere_losesNoPlaylist()
    {
        const TestFolder folder;
        Playlists playlists;
        const QByteArray whole = fileOf("playlist", twoLists);
        for (qsizetype i = 0; i < whole.size(); i += 1) {
            const QStringList cut = reading(whole.first(i), playlists);
            QVERIFY(!cut.join("").contains('|') || cut == both.first(whole.first(i).count("#\"")));
            for (const char *byte : {"\"", ",", "\n", " ", "]"}) {
                const QStringList read = reading(QByteArray(whole).replace(i, 1, byte), playlists);
                if (read.size() == 1) // the reason for which it was refused
                    continue;
                QCOMPARE(read.size(), 2);
                QVERIFY(deletePlaylist(playlists, "no such name").ok());
                QCOMPARE(reading(contents(path), playlists), read);
            }
        }
    }

    void writePlaylistFile_replacesWhatIsShownOrAdds()
    {
        const TestFolder folder;
        Playlists playlists;
        reading(fileOf("playlist", "\"a\",\"1,#\",\r\n\"b\",\"2,#\",\r\n\"a\",\"3,#\",\r\n"), playlists);
        QVERIFY(writePlaylistFile(playlists, "a", "a", "9,#").ok());
        QVERIFY(writePlaylistFile(playlists, "A", "A", "#").ok());
        QVERIFY(writePlaylistFile(playlists, "è, \"x\"", "a", "4,#").ok());
        const QByteArray rest = "\"A\",\"#\",\r\n\"\xe8, 'x'\",\"4,#\",\r\n";
        QCOMPARE(contents(path),
                 fileOf("playlist", "\"a\",\"9,#\",\r\n\"b\",\"2,#\",\r\n\"a\",\"9,#\",\r\n" + rest));
        QVERIFY(deletePlaylist(playlists, "a").ok());
        QCOMPARE(contents(path), "var playlist = [\r\n\"b\",\"2,#\",\r\n" + rest + " ];\r\n");
    }

    void everyByteIsKept_andTheOnlyPlaylistCanGo()
    {
        const TestFolder folder;
        const QByteArray field = '"' + everyByte() + "\",", file = fileOf("playlist", field + field + "\r\n");
        const QString name = fromCodePage(everyByte());
        Playlists playlists;
        reading(file, playlists);
        QVERIFY(writePlaylistFile(playlists, name, name, playlists.songsOf(name)).ok());
        QCOMPARE(contents(path), file);
        QVERIFY(deletePlaylist(playlists, name).ok());
        QCOMPARE(contents(path), fileOf("playlist", ""));
        QCOMPARE(playlists.playlistSlot, 1);
    }

    void aFullFile_takesNoMore()
    {
        const TestFolder folder;
        const QByteArray line = "\"7\",\"1,#\",\r\n",
                         full = fileOf("playlist", QByteArray(line).replace("7", "8").repeated(998) + line);
        Playlists playlists;
        reading(full, playlists);
        QCOMPARE(writePlaylistFile(playlists, "1000", "1000", "#").kind, Kind::Refused);
        QCOMPARE(contents(path), full);
        QVERIFY(writePlaylistFile(playlists, "7", "7", "#").ok());
    }

    void decodeSongList_passesOverWhatIsNoRecordNumber()
    {
        QCOMPARE(decodeSongList("12,,x,-1,2.5,0, 7 ,9999,10000,99999999999,007,8"),
                 QList<int>({12, 0, 7, 9999, 7}));
    }
};

QTEST_APPLESS_MAIN(PlaylistFileTest)
#include "playlist_file_test.moc"

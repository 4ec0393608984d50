#include "format/code_page.h"
#include "playlists/playlist_store.h"
#include "support/test_folder.h"

using Kind = Result::Kind;

static const QString path = "spartiti/playlist.js";
static const QByteArray a = "\"a\",\"1,#\",\r\n", b = "\"b\",\"2,#\",\r\n", c = "\"a\",\"3,#\",\r\n";
static const QByteArray twoLists = "\"Sunday set\",\"12,3,47,#\",\r\n\"Gig, \x80 \x9d\xe8',;\",\"#\",\r\n";
static const QString two = "Sunday set|12,3,47,#; Gig, € \u009dè',;|#";

static QByteArray fileOf(const QByteArray &lines)
{
    return fileOf("playlist", lines);
}

// What a file reads as, each playlist as "name|songs", or the reason for which it does not.
static QString reading(const QByteArray &bytes, Playlists &playlists)
{
    put(path, bytes);
    if (const Result result = readPlaylistFile(playlists); !result.ok())
        return "refused: " + result.reason;
    QStringList all;
    for (size_t i = 1; i <= static_cast<size_t>(playlists.count()); i += 1)
        all += playlists.playlistName[i] + '|' + playlists.playlistSongs[i];
    return all.join("; ");
}

using Reading = std::pair<QByteArray, QString>; // a file, and what it reads as

// What is on the disk, null for no file; "save", "add" or "delete"; what is known of it; the playlists
// afterwards, or what was found stored.
using Change = std::tuple<QByteArray, QString, QStringList, QString>;

class PlaylistFileTest : public FolderTest
{
    Q_OBJECT
private slots:
    void readPlaylistFile_readsOrRefuses_data()
    {
        const QByteArray first = "var playlist = [\r\n";
        const QString one = "it is damaged at playlist 1", next = "it is damaged at playlist 2";
        const QString begin = "it is damaged in its first line";
        tableOf<Reading>(
            {{"no closing line and no last comma", {first + twoLists.chopped(3), two}},
             {"blank lines behind the end", {fileOf(twoLists) + "\r\n\r\n", two}},
             {"none, other first line", {"x = [\r\n ];\r\n", ""}},
             {"empty", {"", begin}},
             {"line end", {first.chopped(2) + a, begin}},
             {"else", {"x\r\n", "it holds no playlists and nothing else that belongs there"}},
             {"more in a line", {fileOf(a + "\"2\",\"2,#\",3\r\n" + a), next}},
             {"quote in a name", {fileOf("a\"b\",\"1,#\",\r\n"), one}},
             {"quote in songs", {fileOf("\"a\",1\",\r\n"), one}},
             {"end as a name", {fileOf("\"];\",\"1\",\r\n"), "it goes on behind its closing line"}},
             {"1000", {fileOf(a.repeated(1000)), "it holds more than 999 playlists"}}});
    }
    void readPlaylistFile_readsOrRefuses()
    {
        const auto [file, expected] = tableRow<Reading>();
        Playlists playlists;
        reading(fileOf(a + a + a), playlists);
        const QString read = reading(file, playlists);
        QCOMPARE(read, expected.startsWith("it ") ? "refused: " + expected : expected);
        QVERIFY(playlists.count() == 3 || !read.startsWith("refused"));
    }

    // What is read has both playlists, but for what was cut off or the one byte that was changed.
    void cutOrChangedAnywhere_losesNoPlaylist()
    {
        Playlists playlists;
        for (qsizetype i = 0; i < fileOf(twoLists).size(); i += 1) {
            QByteArray cut = fileOf(twoLists).first(i);
            const QString left = reading(cut, playlists);
            while (cut.endsWith('\r') || cut.endsWith('\n') || cut.endsWith(','))
                cut.chop(1);
            if (cut.endsWith("#\"") || cut.endsWith("];") || cut == "var playlist = [")
                QCOMPARE(left, two.first(QList<qsizetype>{0, 20, two.size()}[cut.count("#\"")]));
            else
                QVERIFY2(left.startsWith("refused"), qPrintable(left));
            for (const char *byte : {"\"", ",", "\n", " ", "]", "7"}) {
                const QString read = reading(fileOf(twoLists).replace(i, 1, byte), playlists);
                if (read.startsWith("refused"))
                    continue;
                QCOMPARE(read.size(), two.size());
                const auto changed = std::mismatch(read.begin(), read.end(), two.begin()).first;
                QCOMPARE(read.mid(changed - read.begin() + 1), two.mid(changed - read.begin() + 1));
                QVERIFY(writePlaylistFileWithout(playlists, "no such name").ok());
                QCOMPARE(reading(contents(path), playlists), read);
            }
        }
    }

    void everyByteIsKept_andTheOnlyPlaylistCanGo()
    {
        const QByteArray field = '"' + everyByte() + "\",", file = fileOf(field + field + "\r\n");
        const QString name = fromCodePage(everyByte());
        Playlists playlists;
        reading(file, playlists);
        QVERIFY(writePlaylistFile(playlists, name, name, playlists.storedUnder(name).last()).ok());
        QCOMPARE(contents(path), file);
        QVERIFY(writePlaylistFileWithout(playlists, name).ok());
        QCOMPARE(contents(path), fileOf(""));
        QCOMPARE(playlists.playlistName[1], "];");
        QVERIFY(writePlaylistFile(playlists, "è, \"x\"", "", "4,#").ok());
        QCOMPARE(contents(path), fileOf("\"\xe8, 'x'\",\"4,#\",\r\n"));
    }

    void aFullFileOrDisk_takesNoMore()
    {
        Playlists playlists;
        const QByteArray full = fileOf(a.repeated(998) + b);
        reading(full, playlists);
        QCOMPARE(writePlaylistFile(playlists, "c", "c", "#").kind, Kind::Refused);
        QVERIFY(writePlaylistFile(playlists, "b", "b", "3,#").ok()); // which needs no more room
        QVERIFY(writePlaylistFileWithout(playlists, "b").ok());
        QVERIFY(writePlaylistFile(playlists, "b", "b", "2,#").ok());
        QCOMPARE(contents(path), full);
        {
            const FullDisk disk(0);
            const PlaylistChange change = deletePlaylist(playlists, "b", {"2,#"});
            QVERIFY(!change.isDone);
            QCOMPARE(change.result.kind, Kind::Unwritable);
            QVERIFY(QFile::remove(path));
            QCOMPARE(openPlaylists(playlists).kind, Kind::Unwritable);
        }
        QCOMPARE(playlists.count(), 999);
        QVERIFY(openPlaylists(playlists).ok());
        QCOMPARE(playlists.count(), 0);
    }

    void changes_beginFromTheDisk_andDestroyOnlyWhatIsKnown_data()
    {
        const QStringList known{"1,#"};
        tableOf<Change>({{"save", {a + b, "save", known, "a|9,#; b|2,#"}},
                         {"save, changed", {c + b, "save", known, "not done: 3,#"}},
                         {"save, equal ones", {a + b + a, "save", known, "a|9,#; b|2,#; a|9,#"}},
                         {"save, no file", {{}, "save", {}, "old|#; a|9,#"}},
                         {"add", {a + b, "add", {}, "a|1,#; b|2,#; a|9,#"}},
                         {"delete", {a + b + a, "delete", known, "b|2,#"}},
                         {"delete, changed", {c + b, "delete", known, "not done: 3,#"}},
                         {"delete, gone", {b, "delete", known, "b|2,#"}}});
    }
    void changes_beginFromTheDisk_andDestroyOnlyWhatIsKnown()
    {
        const auto [onDisk, what, known, outcome] = tableRow<Change>();
        Playlists playlists;
        reading(fileOf("\"old\",\"#\",\r\n"), playlists);
        onDisk.isNull() ? (void)QFile::remove(path) : put(path, fileOf(onDisk));
        const PlaylistChange change = what == "delete"
            ? deletePlaylist(playlists, "a", known)
            : savePlaylist(playlists, {"a", "9,#", known, what == "add"});
        QVERIFY(change.result.ok());
        QCOMPARE(change.count, onDisk.isNull() ? 1 : onDisk.count('\n'));
        const QByteArray after = contents(path);
        QVERIFY(change.isDone || after == fileOf(onDisk));
        if (change.isDone)
            QVERIFY(writePlaylistFileWithout(playlists, "no such name").ok()); // from memory
        QCOMPARE(contents(path), after);
        QCOMPARE(change.isDone ? reading(after, playlists) : "not done: " + change.stored.join(' '), outcome);
    }

    void decodeSongList_passesOverWhatIsNoRecordNumber()
    {
        QCOMPARE(decodeSongList("12,,x,-1,2.5,0, 7 ,9999,10000,99999999999,007,8"),
                 QList<int>({12, 0, 7, 9999, 7}));
    }
};

QTEST_GUILESS_MAIN(PlaylistFileTest)
#include "playlist_file_test.moc"

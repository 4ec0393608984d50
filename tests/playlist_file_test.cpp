#include "format/code_page.h"
#include "playlists/edited_list.h"
#include "playlists/playlist_store.h"
#include "support/test_folder.h"

#include <QTest>

using Kind = Result::Kind;

static const QString path = "spartiti/playlist.js";
static const QByteArray one = "\"1\",\"1,#\",\r\n";
static const QByteArray twoLists = "\"Sunday set\",\"12,3,47,#\",\r\n\"Gig, \x80 \x9d\xe8',;\",\"#\",\r\n";
static const QStringList both = {"Sunday set|12,3,47,#", "Gig, € \u009dè',;|#"};

// Each playlist as "name|songs".
static QStringList textOf(const Playlists &playlists)
{
    QStringList all;
    for (size_t i = 1; i <= static_cast<size_t>(playlists.count()); i += 1)
        all += playlists.playlistName[i] + '|' + playlists.playlistSongs[i];
    return all;
}

static Result reading(const QByteArray &bytes, Playlists &playlists)
{
    put(path, bytes);
    return readPlaylistFile(playlists);
}

// How many places of two texts of one length differ; -1 if the lengths do.
static int differences(const QString &text, const QString &other)
{
    int places = text.size() == other.size() ? 0 : -1;
    for (qsizetype i = 0; places >= 0 && i < text.size(); i += 1)
        places += text[i] == other[i] ? 0 : 1;
    return places;
}

class PlaylistFileTest : public QObject
{
    Q_OBJECT
private slots:
    void readPlaylistFile_readsOrRefuses_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QString>("outcome"); // the playlists, or the end of the reason
        const QByteArray first = fileOf("playlist", "").chopped(5);
        const QString two = both.join('\n');
        QTest::addRow("as written") << fileOf("playlist", twoLists) << two;
        QTest::addRow("no closing line and no last comma") << first + twoLists.chopped(3) << two;
        QTest::addRow("blank lines behind the end") << fileOf("playlist", twoLists) + "\r\n\r\n" << two;
        QTest::addRow("another first line") << "let list = [\r\n" + twoLists << two;
        QTest::addRow("999 playlists")
            << fileOf("playlist", one.repeated(999)) << QString("1|1,#\n").repeated(999).chopped(1);
        QTest::addRow("none") << fileOf("playlist", "") << QString();
        QTest::addRow("none, and another first line") << QByteArray("x = [\r\n ];\r\n") << QString();
        QTest::addRow("none, and no end") << first << QString();
        QTest::addRow("empty") << QByteArray("") << "is damaged in its first line";
        QTest::addRow("no line end behind the first line")
            << first.chopped(2) + twoLists << "is damaged in its first line";
        QTest::addRow("something else") << QByteArray("hello\r\n") << "nothing else that belongs there";
        QTest::addRow("cut within songs") << first + twoLists.first(20) << "is damaged at playlist 1";
        QTest::addRow("cut behind a name") << first + one + "\"2\","
                                           << "is damaged at playlist 2";
        QTest::addRow("more in a line")
            << fileOf("playlist", one + "\"2\",\"2,#\",3\r\n" + one) << "is damaged at playlist 2";
        QTest::addRow("a quote in a name")
            << fileOf("playlist", "a\"b\",\"1,#\",\r\n") << "is damaged at playlist 1";
        QTest::addRow("a quote in songs")
            << fileOf("playlist", "\"a\",1\",\r\n") << "is damaged at playlist 1";
        QTest::addRow("the end as a name")
            << fileOf("playlist", "\"];\",\"1,#\",\r\n") << "goes on behind its closing line";
        QTest::addRow("1000 playlists")
            << fileOf("playlist", one.repeated(1000)) << "holds more than 999 playlists";
    }

    void readPlaylistFile_readsOrRefuses()
    {
        QFETCH(QByteArray, file);
        QFETCH(QString, outcome);
        const TestFolder folder;
        Playlists playlists;
        QVERIFY(reading(fileOf("playlist", "\"before\",\"#\",\r\n"), playlists).ok());
        const Result result = reading(file, playlists);
        if (result.ok()) {
            QCOMPARE(textOf(playlists).join('\n'), outcome);
        } else {
            QVERIFY2(result.reason.endsWith(outcome) && !outcome.isEmpty(), qPrintable(result.reason));
            QCOMPARE(textOf(playlists), QStringList("before|#"));
        }
    }

    // What is read has both playlists, but for the one byte that was changed.
    void changedAnywhere_losesNoPlaylist()
    {
        const TestFolder folder;
        const QByteArray whole = fileOf("playlist", twoLists);
        int read = 0;
        for (qsizetype i = 0; i < whole.size(); i += 1) {
            for (const char *byte : {"\"", ",", "\n", " ", "]", "7"}) {
                Playlists playlists;
                if (!reading(QByteArray(whole).replace(i, 1, byte), playlists).ok())
                    continue;
                const QStringList found = textOf(playlists);
                const int changed = differences(found.join('\n'), both.join('\n'));
                QVERIFY2(changed == 0 || changed == 1, qPrintable(found.join('\n')));
                QVERIFY(writePlaylistFileWithout(playlists, "no such name").ok());
                QVERIFY(readPlaylistFile(playlists).ok());
                QCOMPARE(textOf(playlists), found);
                read += 1;
            }
        }
        QVERIFY(read > 200);
    }

    void cutAnywhere_keepsWholePlaylistsOrRefuses()
    {
        const TestFolder folder;
        const QByteArray whole = fileOf("playlist", twoLists);
        for (qsizetype size = 0; size < whole.size(); size += 1) {
            Playlists playlists;
            const bool isRead = reading(whole.first(size), playlists).ok();
            QByteArray cut = whole.first(size);
            while (cut.endsWith('\r') || cut.endsWith('\n'))
                cut.chop(1);
            const bool isWhole = cut == "var playlist = [" || cut.endsWith("#\"") || cut.endsWith("#\",")
                || cut.endsWith("];");
            QCOMPARE(isRead, isWhole);
            if (isRead)
                QCOMPARE(textOf(playlists), both.first(whole.first(size).count("#\"")));
        }
    }

    void writePlaylistFile_replacesWhatIsShownOrAdds()
    {
        const TestFolder folder;
        Playlists playlists;
        QVERIFY(
            reading(fileOf("playlist", "\"a\",\"1,#\",\r\n\"b\",\"2,#\",\r\n\"a\",\"3,#\",\r\n"), playlists)
                .ok());
        QVERIFY(writePlaylistFile(playlists, "a", "a", "9,#").ok());
        QVERIFY(writePlaylistFile(playlists, "A", "A", "#").ok());
        QVERIFY(writePlaylistFile(playlists, "è, \"x\"", "a", "4,#").ok());
        const QByteArray rest = "\"A\",\"#\",\r\n\"\xe8, 'x'\",\"4,#\",\r\n";
        QCOMPARE(contents(path),
                 fileOf("playlist", "\"a\",\"9,#\",\r\n\"b\",\"2,#\",\r\n\"a\",\"9,#\",\r\n" + rest));
        QVERIFY(writePlaylistFileWithout(playlists, "a").ok());
        QCOMPARE(contents(path), "var playlist = [\r\n\"b\",\"2,#\",\r\n" + rest + " ];\r\n");
    }

    void everyByteIsKept_andTheOnlyPlaylistCanGo()
    {
        const TestFolder folder;
        const QByteArray field = '"' + everyByte() + "\",", file = fileOf("playlist", field + field + "\r\n");
        const QString name = fromCodePage(everyByte());
        Playlists playlists;
        QVERIFY(reading(file, playlists).ok());
        QVERIFY(writePlaylistFile(playlists, name, name, playlists.storedUnder(name).last()).ok());
        QCOMPARE(contents(path), file);
        QVERIFY(writePlaylistFileWithout(playlists, name).ok());
        QCOMPARE(contents(path), fileOf("playlist", ""));
        QCOMPARE(playlists.playlistSlot, 1);
        QCOMPARE(playlists.playlistName[1], "];");
    }

    void aFullFile_takesNoMore()
    {
        const TestFolder folder;
        const QByteArray line = "\"7\",\"1,#\",\r\n",
                         full = fileOf("playlist", QByteArray(line).replace("7", "8").repeated(998) + line);
        Playlists playlists;
        QVERIFY(reading(full, playlists).ok());
        QCOMPARE(writePlaylistFile(playlists, "1000", "1000", "#").kind, Kind::Refused);
        QCOMPARE(contents(path), full);
        QVERIFY(writePlaylistFile(playlists, "7", "7", "#").ok());
        QVERIFY(writePlaylistFileWithout(playlists, "7").ok());
        QVERIFY(writePlaylistFile(playlists, "999", "999", "#").ok());
    }

    void changes_beginFromTheDisk_andDestroyOnlyWhatIsKnown_data()
    {
        QTest::addColumn<QByteArray>("onDisk"); // null: no file
        QTest::addColumn<QString>("what"); // "save", "add" or "delete"
        QTest::addColumn<QStringList>("known");
        QTest::addColumn<QString>("outcome"); // the playlists afterwards, or what was found stored
        const QByteArray a = "\"a\",\"1,#\",\r\n", b = "\"b\",\"2,#\",\r\n", other = "\"a\",\"3,#\",\r\n";
        const QStringList known{"1,#"};
        QTest::addRow("save what is known") << a + b << "save" << known << "a|9,# b|2,#";
        QTest::addRow("save what was changed") << other + b << "save" << known << "not done: 3,#";
        QTest::addRow("save what has gone") << b << "save" << known << "not done: ";
        QTest::addRow("save what came") << a << "save" << QStringList() << "not done: 1,#";
        QTest::addRow("save one of two") << a + other << "save" << known << "not done: 1,# 3,#";
        QTest::addRow("save one of two equal ones") << a + b + a << "save" << known << "a|9,# b|2,# a|9,#";
        QTest::addRow("save two") << other + a << "save" << QStringList{"3,#", "1,#"} << "a|9,# a|9,#";
        QTest::addRow("save a new one") << b << "save" << QStringList() << "b|2,# a|9,#";
        QTest::addRow("add one more") << a + b << "add" << QStringList() << "a|1,# b|2,# a|9,#";
        QTest::addRow("delete what is known") << a + b + a << "delete" << known << "b|2,#";
        QTest::addRow("delete what was changed") << other + b << "delete" << known << "not done: 3,#";
        QTest::addRow("delete what has gone") << b << "delete" << known << "b|2,#";
        QTest::addRow("save without a file") << QByteArray() << "save" << QStringList() << "old|# a|9,#";
        QTest::addRow("delete without a file") << QByteArray() << "delete" << known << "old|#";
    }

    void changes_beginFromTheDisk_andDestroyOnlyWhatIsKnown()
    {
        QFETCH(QByteArray, onDisk);
        QFETCH(QString, what);
        QFETCH(QStringList, known);
        QFETCH(QString, outcome);
        const TestFolder folder;
        Playlists playlists;
        QVERIFY(reading(fileOf("playlist", "\"old\",\"#\",\r\n"), playlists).ok());
        if (onDisk.isNull())
            QVERIFY(QFile::remove(path));
        else
            put(path, fileOf("playlist", onDisk));
        const PlaylistChange change = what == "delete"
            ? deletePlaylist(playlists, "a", known)
            : savePlaylist(playlists, {"a", "9,#", known, what == "add"});
        QVERIFY(change.result.ok());
        if (change.isDone) {
            QCOMPARE(textOf(playlists).join(' '), outcome);
            QVERIFY(readPlaylistFile(playlists).ok());
            QCOMPARE(textOf(playlists).join(' '), outcome);
        } else {
            QCOMPARE("not done: " + change.stored.join(' '), outcome);
            QCOMPARE(contents(path), fileOf("playlist", onDisk));
            QCOMPARE(textOf(playlists), QStringList("old|#"));
        }
    }

    void changes_leaveADamagedFileAlone()
    {
        const TestFolder folder;
        Playlists playlists;
        const QByteArray damaged = fileOf("playlist", one).chopped(12);
        put(path, damaged);
        QCOMPARE(savePlaylist(playlists, {"a", "9,#"}).result.kind, Kind::Damaged);
        QCOMPARE(deletePlaylist(playlists, "1", {"1,#"}).result.kind, Kind::Damaged);
        QCOMPARE(openPlaylists(playlists).kind, Kind::Damaged);
        QCOMPARE(contents(path), damaged);
    }
};

QTEST_APPLESS_MAIN(PlaylistFileTest)
#include "playlist_file_test.moc"

#include "archive/archive_file.h"
#include "intake/bring_in.h"
#include "intake/coming_table.h"
#include "support/scans.h"

#include <QFileInfo>

static ComingSong song(const QString &title, const QString &left, const QString &right = {})
{
    ComingSong song;
    song.title = title;
    song.left.file = left;
    song.right.file = right;
    return song;
}

// "Title/Author:2", the number of pages behind each.
static QString textOf(const QList<ComingSong> &songs)
{
    QStringList texts;
    for (const ComingSong &song : songs)
        texts += song.title + '/' + song.author + ':' + QString::number(song.pages().size());
    return texts.join(' ');
}

static void loadOneSong()
{
    putArchive({"One|||0"});
    (void)loadArchive();
}

class IntakeFilesTest : public FolderTest
{
    Q_OBJECT
private slots:
    void jpegs_comeByteForByte()
    {
        loadOneSong();
        put("in/a.jpg", scan("jpg"));
        put("in/b.jpeg", scan("jpg", QImage::Format_Grayscale8));
        put("in/c.png", scan("jpg")); // named wrongly
        put("in/r.mp3", "sound");
        put("spartiti/m.jpg", "empty sheet");
        const QTemporaryDir otherDisk("/dev/shm/XXXXXX");
        QVERIFY(putLink(otherDisk.path(), "spartiti/audio"));
        ComingSong second = song("Third", "in/c.png");
        second.recording = "in/r.mp3";
        second.category = 7;
        const BringInReport report = bringIn({song("Second", "in/a.jpg", "in/b.jpeg"), second}, {});
        QVERIFY(report.result.ok() && report.playlist.ok() && troublesOf(report).isEmpty());
        QCOMPARE(contents("spartiti/archivio.js"), archiveOf({"One|||0", "Second|||0", "Third|||7"}));
        for (const auto &[page, from] : {std::pair("2L.jpg", "in/a.jpg"),
                                         {"2R.jpg", "in/b.jpeg"},
                                         {"3L.jpg", "in/c.png"},
                                         {"3R.jpg", "spartiti/m.jpg"},
                                         {"audio/3.mp3", "in/r.mp3"}})
            QCOMPARE(contents(QString("spartiti/") + page), contents(from));
    }

    void cancelledAtAnyMoment_leavesTheFilesAsTheyWere()
    {
        loadOneSong();
        Module1.recTitle[1] = "typed";
        put("in/a.jpg", scan("jpg"));
        put("in/b.png", scan("png"));
        put("in/c.pdf", pdf(2));
        ComingSong book = song("Book", {});
        book.left = {.file = "in/c.pdf", .pdfPage = 1, .dpi = 10};
        book.right = {.file = "in/c.pdf", .pdfPage = 2, .dpi = 10, .turns = 1};
        const QList<ComingSong> songs{song("A", "in/a.jpg", "in/b.png"), book};
        const auto before = filesBelow(".");
        for (int stop = 0;; stop += 1) {
            int asked = 0;
            const Result result = bringIn(songs, "List", [&](int, int) { return asked++ < stop; }).result;
            if (result.ok())
                break;
            QCOMPARE(result.kind, Result::Kind::Cancelled);
            QCOMPARE(filesBelow("."), before);
            QCOMPARE(Module1.recTitle[2], QString());
        }
        QCOMPARE(contents("spartiti/archivio.js"), archiveOf({"typed|||0", "A|||0", "Book|||0"}));
    }

    void whatCannotBe_isRefusedBefore()
    {
        loadOneSong();
        put("in/a.jpg", scan("jpg"));
        put("spartiti/playlist.js", fileOf("playlist", "\"Here\",\"1,#\",\r\n"));
        const QList<ComingSong> songs{song("A", "in/a.jpg")};
        const auto before = filesBelow(".");
        QVERIFY(bringIn(songs, "Here").result.reason.contains("already"));
        QVERIFY(!bringIn(songs, "];").result.ok());
        Module1.archiveRefusal = "It is damaged.";
        QCOMPARE(bringIn(songs, {}).result.reason, "It is damaged.");
        QCOMPARE(filesBelow("."), before);
    }

    void folders_becomeSongsAndKnownOnesAreNotTicked()
    {
        loadOneSong();
        put("in/Menuet-L.jpg", scan("jpg"));
        put("in/Menuet-R.jpg", scan("jpg", QImage::Format_Grayscale8));
        put("in/deep/er/Bach - Air p1.png", scan("png"));
        put("in/deep/er/Bach - Air p2.png", scan("png"));
        put("in/deep/Book.pdf", pdf(3));
        put("in/notes.txt", "text");
        put("in/.hidden.jpg", "hidden");
        QVERIFY(putLink(QFileInfo("in").absoluteFilePath(), "in/deep/loop"));
        const auto songsIn = [&](const FoundFiles &found) {
            KnownSongs known;
            return songsOf(found, readPdfs(pdfsIn(found)), {0, NamesAre::AuthorTitle, false}, known);
        };
        const FoundFiles found = findFiles({"in", "in/Menuet-L.jpg", "in/nothing.jpg"});
        QCOMPARE(found.others, 1);
        const QList<ComingSong> songs = songsIn(found);
        QCOMPARE(textOf(songs), "Menuet/:2 Book/:2 Book (2)/:1 Air/Bach:2");
        QVERIFY(bringIn(songs, {}).result.ok());
        (void)loadArchive();
        for (const ComingSong &each : songsIn(found))
            QVERIFY(!each.isTicked && each.known > 1);
        // It depends on how the names are read.
        ComingTable table;
        table.replaceSongs(songsIn(found), "songs");
        table.readNames({0, NamesAre::Title, false});
        QVERIFY(table.songs()[3].isTicked && table.songs()[3].known == 0 && !table.songs()[0].isTicked);
        table.setText({3}, ComingColumn::Title, "one ");
        QCOMPARE(table.index(3, int(ComingColumn::Note)).data(), "in the archive as no. 1");
        table.readNames({0, NamesAre::AuthorTitle, false});
        QCOMPARE(table.tickedCount(), 1);
        // One that is called otherwise is known by its picture.
        QFile::rename("in/Menuet-L.jpg", "in/scan0041.jpg");
        QFile::remove("in/Menuet-R.jpg");
        QCOMPARE(songsIn(findFiles({"in/scan0041.jpg"}))[0].known, 2);
    }

    void aBook_becomesItsSongs()
    {
        KnownSongs known;
        const QList<ContentsSong> entries = contentsOf("A,1,Me\nB,4\nC,299", 0, 300).songs;
        const auto songs = songsOfBook("book.pdf", {{}, QList<int>(300, 200)}, entries, known);
        QVERIFY2(textOf(songs).startsWith("A/Me:2 A (2)/Me:1 B/:2 B (2)/:2 "), qPrintable(textOf(songs)));
        QCOMPARE(songs[1].left.pdfPage, 3);
        QCOMPARE(songs.last().title, "C");
        QCOMPARE(songs.last().right.pdfPage, 300);
    }

    void rows_arePutRightAndUndone()
    {
        ComingTable table;
        QList<ComingSong> songs;
        for (const char *name : {"a", "b", "c", "d", "e"})
            songs += song(name, QString(name) + ".jpg");
        table.replaceSongs(songs, "songs");
        QVERIFY(table.canJoin({0, 1, 2, 3}) && !table.canJoin({0}) && table.canJoin({4}));
        table.join({0, 1, 2, 3, 4});
        QCOMPARE(textOf(table.songs()), "a/:2 c/:2 e/:1");
        QVERIFY(!table.canJoin({1}));
        table.exchangePages({1});
        QVERIFY(table.songs()[1].left.file.endsWith("d.jpg"));
        const QModelIndex right = table.index(0, int(ComingColumn::Right));
        QVERIFY(table.canBeginSongAt(right)
                && !table.canBeginSongAt(table.index(2, int(ComingColumn::Left))));
        table.beginSongAt(right);
        QCOMPARE(textOf(table.songs()), "a/:1 b/:1 c/:2 e/:1");
        table.halve({2, 3});
        QCOMPARE(textOf(table.songs()), "a/:1 b/:1 c/:2 c (2)/:2 e/:2");
        QVERIFY(!table.canHalve({4}) && table.canHalve({0}));
        table.turn({table.index(0, int(ComingColumn::Left)), table.index(4, int(ComingColumn::Right))});
        QCOMPARE(table.songs()[0].left.turns, 1);
        QCOMPARE(table.songs()[4].right.turnsOfPart, 1);
        table.setText({0, 1}, ComingColumn::Tags, "quiet \"slow\"");
        QCOMPARE(table.songs()[1].tags, "quiet 'slow'");
        table.setText({0}, ComingColumn::Title, "Mine");
        table.readNames({0, NamesAre::Title, false});
        QCOMPARE(table.songs()[0].title, "Mine");
        while (table.undoStack()->index() > 1)
            table.undoStack()->undo();
        QVERIFY(table.songs() == songs);
    }
};

QTEST_GUILESS_MAIN(IntakeFilesTest)
#include "intake_files_test.moc"

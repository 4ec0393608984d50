#include "archive/archive_file.h"
#include "intake/bring_in.h"
#include "intake/coming_table.h"
#include "intake/pairing.h"
#include "support/scans.h"

// "minuet: minuet-L.jpg & minuet-R.jpg" with the recording last and "." for an empty place; just the file of
// a song that has one and is called so.
static QString textOf(const QList<NamedSong> &songs)
{
    QStringList texts;
    for (const NamedSong &song : songs) {
        QStringList files = song.pages;
        if (!song.recording.isEmpty())
            files += song.recording;
        const bool isJustThat = files.size() == 1 && files[0].startsWith(song.name + '.');
        files.replaceInStrings(QRegularExpression("^$"), ".");
        texts += isJustThat ? files[0] : song.name + ": " + files.join(" & ");
    }
    return texts.join(" | ");
}

// A table of contents, what it says ("title/author first-last"), and what is wrong in it.
using Csv = std::tuple<QByteArray, QString, QString>;

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

class IntakeTest : public FolderTest
{
    Q_OBJECT
private slots:
    void names_pairAsAPersonWould_data()
    {
        tableOf<QString>({
            {"sides", "minuet: minuet-L.jpg & minuet-R.jpg"},
            {"a right page alone", "minuet: . & minuet_right.png"},
            {"two names that say left", "minuet left.png | minuet-L.jpg"},
            {"Italian", "Aria: Aria sinistra.jpg & Aria destra.jpg | Ciao: Ciao (sx).jpg & Ciao (dx).jpg"},
            {"German", "Lied: Lied links.jpg & Lied rechts.jpg | Ode: Ode linke Seite.jpg & Ode rechte.jpg"},
            {"French", "La mer: La mer - page gauche.png & La mer - page droite.png"},
            {"an archive's own names", "12: 12L.jpg & 12R.jpg | 13: 13L.jpg"},
            {"case, blanks, zeros and endings differ", "Ave_Maria: Ave_Maria_1.JPG & ave maria 02.png"},
            {"letters composed and not", "Für Elise: Für Elise 1.jpg & Fu\u0308r Elise 2.jpg"},
            {"three numbers in brackets", "Duo: Duo (1).jpg & Duo(2).jpg | Duo (2): Duo [3].jpg"},
            {"the second of two of one name", "Für Elise: Für Elise.png & Für Elise (2).png"},
            {"a second work, or a number alone", "Song 2.jpg | Waltz 2.jpg | Waltz.jpg"},
            {"letters, or keys", "Largo: Largo a.jpg & Largo b.jpg | Sonata in a.jpg | Sonata in b.jpg"},
            {"p1", "05 - Bach - Menuet: 05 - Bach - Menuet p1.tiff & 05 - Bach - Menuet p2.tiff"},
            {"page", "Canto: Canto pag.1.jpg & Canto pag.2.jpg | Ode: Ode Page 1.jpg & Ode page 2.jpg"},
            {"1 of 2", "Lied: Lied Seite 1.jpg & Lied S. 2.jpg | Ode: Ode 1 of 2.jpg & Ode 2 of 2.jpg"},
            {"no pages from 1 on", "Aria 1.jpg | Aria 2.jpg | Aria 4.jpg | Symphony 5.jpg | Symphony 6.jpg"},
            {"one number twice", "Aria 1.jpg | Aria 1.png | Aria 2.jpg"},
            {"counted works", "Prelude No. 1.jpg | Prelude No. 2.jpg | Valse n°1.jpg | Valse n°2.jpg"},
            {"pages of a counted work", "Prelude No. 1: Prelude No. 1 p1.jpg & Prelude No. 1 p2.jpg"},
            {"a scanner and a camera", "IMG_0001.JPG | IMG_0002.JPG | scan0001.jpg | scan0002.jpg"},
            {"dates", "20231104_0001.jpg | 20231104_0002.jpg | Scan_20231104 (2).jpg | Scan_20231104.jpg"},
            {"recordings", "Largo: Largo.png & Largo.mp3 | Loose.mp3 | Menuet: Menuet-L.jpg & menuet.mp3"},
            {"a PDF with its recording", "Book: Book.jpg & Book.mp3 | Book.pdf"},
        });
    }
    void names_pairAsAPersonWould()
    {
        const auto songs = tableRow<QString>();
        static const QRegularExpression betweenFiles(R"(( \| )?[^|&]*: | \| | & )");
        QStringList names = songs.split(betweenFiles, Qt::SkipEmptyParts);
        names.removeAll(".");
        QCOMPARE(textOf(pairByName(names)), songs);
        std::reverse(names.begin(), names.end());
        QCOMPARE(textOf(pairByName(names)), songs);
    }

    void everyFile_isInOneSong()
    {
        QStringList names;
        for (int i = 1; i <= 40; i += 1)
            names += QStringLiteral("Hymn %1.jpg").arg(i);
        QCOMPARE(textOf(pairByName(names)), names.join(" | "));
        QCOMPARE(textOf(pairInOrder(names, 1)), names.join(" | "));
        QCOMPARE(textOf(pairInOrder({"b.jpg", "a.jpg", "c.jpg", "a.mp3", "d.pdf"}, 2)),
                 "a: a.jpg & b.jpg & a.mp3 | c.jpg | d.pdf");
        QCOMPARE(pairByName({"Thumbs.db", "._a.jpg", "notes.txt", "noending"}), {});
    }

    void titles_comeFromNames()
    {
        const std::tuple<const char *, NamesAre, bool, const char *> rows[] = {
            {"Für_Elise", NamesAre::Title, false, "Für Elise / "},
            {"05 - Bach - Menuet", NamesAre::AuthorTitle, true, "Menuet / Bach"},
            {"05. Menuet – J. S. Bach", NamesAre::TitleAuthor, true, "Menuet / J. S. Bach"},
            {"12 Menuet", NamesAre::AuthorTitle, true, "Menuet / "},
            {"Jean-Luc - Ça va - la la", NamesAre::AuthorTitle, false, "Ça va - la la / Jean-Luc"},
            {"1984", NamesAre::Title, true, "1984 / "},
            {"3te_Sinfonie", NamesAre::Title, true, "3te Sinfonie / "},
            {"Dvořák \U0001F3B5 \"Largo\"", NamesAre::Title, false, "Dvorák  'Largo' / "},
        };
        for (const auto &[name, namesAre, leaveOut, expected] : rows) {
            const SongName song = songNameOf(name, namesAre, leaveOut);
            QCOMPARE(song.title + " / " + song.author, expected);
        }
    }

    void contents_areReadOrToldByLine_data()
    {
        tableOf<Csv>({
            {"plain", {"A,1\nB,3\n", "A 1-2 | B 3-20", ""}},
            {"heading, CR LF", {"Title,Page,Author\r\nA,1,X\r\nB,2,Y\r\n", "A/X 1-1 | B/Y 2-20", ""}},
            {"semicolons", {"A, the first;1\nB;2;Y", "A, the first 1-1 | B/Y 2-20", ""}},
            {"tabs", {"A;B\t1\nC\t2", "A;B 1-1 | C 2-20", ""}},
            {"quotes",
             {"\"A, \"\"b\"\"\",1\n \"two\nlines\" ,3\nC,x\n", "A, 'b' 1-2 | two lines 3-20",
              "Line 4: \"x\" is no page of \"C\""}},
            {"a quote never closed", {"\"A,1\nB,2\n", "B 2-20", "Line 1: \"A,1\" has no page"}},
            {"byte-order mark", {"\xEF\xBB\xBFÉté,1", "Été 1-20", ""}},
            {"UTF-16", {QByteArray::fromHex("fffec9002c003100"), "É 1-20", ""}},
            {"Windows-1252", {"\xC9t\xE9,1\n\x8Cuvre,5", "Été 1-4 | Œuvre 5-20", ""}},
            {"one page twice, out of order", {"C,5\nA,4\nB,4\n", "A 4-4 | B 4-4 | C 5-20", ""}},
            {"wrong lines",
             {"A,1\n\n,2\nB\nC,\nD,21\nF,20", "A 1-19 | F 20-20",
              "Line 3: there is no title; Line 4: \"B\" has no page; Line 5: \"C\" has no page; "
              "Line 6: \"D\" begins on page 21, and the book has the pages 1 to 20"}},
            {"old line ends", {"A,1\rB,2\rC,x\r", "A 1-1 | B 2-20", "Line 3: \"x\" is no page of \"C\""}},
        });
    }
    void contents_areReadOrToldByLine()
    {
        const auto [bytes, says, troubles] = tableRow<Csv>();
        const Contents contents = contentsOf(bytes, 0, 20);
        QStringList songs;
        for (const ContentsSong &song : contents.songs)
            songs += QStringLiteral("%1%2 %3-%4")
                         .arg(song.title, song.author.isEmpty() ? "" : "/" + song.author)
                         .arg(song.firstPage)
                         .arg(song.lastPage);
        QCOMPARE(songs.join(" | "), says);
        QCOMPARE(contents.troubles.join("; "), troubles);
    }

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
        // One that is called otherwise is known by its picture.
        QFile::rename("in/Menuet-L.jpg", "in/scan0041.jpg");
        QFile::remove("in/Menuet-R.jpg");
        QCOMPARE(songsIn(findFiles({"in/scan0041.jpg"}))[0].known, 2);
    }

    void aBook_becomesItsSongs()
    {
        KnownSongs known;
        const QList<ContentsSong> entries = contentsOf("A,0,Me\nB,3\nC,298", 1, 300).songs;
        const auto songs = songsOfBook("book.pdf", {{}, QList<int>(300, 200)}, entries, known);
        QVERIFY2(textOf(songs).startsWith("A/Me:2 A (2)/Me:1 B/:2 B (2)/:2 "), qPrintable(textOf(songs)));
        QCOMPARE(songs[1].left.pdfPage, 3);
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
        table.halve({1, 2});
        QCOMPARE(textOf(table.songs()), "a/:2 c/:2 c (2)/:2 e/:2");
        QVERIFY(!table.canHalve({3}) && table.canHalve({0}));
        table.turn({table.index(0, int(ComingColumn::Left)), table.index(3, int(ComingColumn::Right))});
        QCOMPARE(table.songs()[0].left.turns, 1);
        QCOMPARE(table.songs()[3].right.turnsOfPart, 1);
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

QTEST_GUILESS_MAIN(IntakeTest)
#include "intake_test.moc"

#include "intake/contents.h"
#include "intake/pairing.h"
#include "intake/song_name.h"
#include "support/table.h"

#include <QTest>

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

// A table of contents, and what it says: "title/author first-last".
struct Csv {
    QByteArray bytes;
    QString songs;
    QString troubles = {};
    int offset = 0;
};

class IntakeNamesTest : public QObject
{
    Q_OBJECT
private slots:
    void names_pairAsAPersonWould_data()
    {
        tableOf<QString>({
            {"sides", "minuet: minuet-L.jpg & minuet-R.jpg"},
            {"a right page alone", "minuet: . & minuet_right.png"},
            {"two names that say left", "minuet left.png | minuet-L.jpg"},
            {"Italian", "La mer: La mer sinistra.jpg & La mer destra.jpg"},
            {"sx and dx", "Ciao: Ciao (sx).jpg & Ciao (dx).jpg"},
            {"German", "Für Elise: Für Elise links.jpg & Für Elise rechts.jpg"},
            {"German, in words", "Ständchen: Ständchen linke Seite.jpg & Ständchen rechte Seite.jpg"},
            {"French", "La mer: La mer - page gauche.png & La mer - page droite.png"},
            {"an archive's own names", "12: 12L.jpg & 12R.jpg | 13: 13L.jpg"},
            {"case, blanks, zeros and endings differ", "Ave_Maria: Ave_Maria_1.JPG & ave maria 02.png"},
            {"letters composed and not", "Für Elise: Für Elise 1.jpg & Fu\u0308r Elise 2.jpg"},
            {"three numbers in brackets", "Duo: Duo (1).jpg & Duo(2).jpg | Duo (2): Duo [3].jpg"},
            {"the second of two of one name", "Für Elise: Für Elise.png & Für Elise (2).png"},
            {"a second work", "Waltz 2.jpg | Waltz.jpg"},
            {"a number alone", "Song 2.jpg"},
            {"three letters", "Largo: Largo a.jpg & Largo b.jpg | Largo (2): Largo c.jpg"},
            {"keys", "Sonata in a.jpg | Sonata in b.jpg"},
            {"p1", "05 - Bach - Menuet: 05 - Bach - Menuet p1.tiff & 05 - Bach - Menuet p2.tiff"},
            {"page", "Hymn: Hymn Page 1.jpg & Hymn page 2.jpg"},
            {"Seite", "Lied: Lied Seite 1.jpg & Lied S. 2.jpg"},
            {"pagina", "Canto: Canto pag.1.jpg & Canto pag.2.jpg"},
            {"1 of 2", "Waltz: Waltz 1 of 2.jpg & Waltz 2 of 2.jpg"},
            {"symphonies", "Symphony 5.jpg | Symphony 9.jpg"},
            {"counted works", "Opus 1.jpg | Opus 2.jpg | Prelude No. 1.jpg | Prelude No. 2.jpg"},
            {"works counted in French", "Valse n°1.jpg | Valse n°2.jpg"},
            {"pages of a counted work", "Prelude No. 1: Prelude No. 1 p1.jpg & Prelude No. 1 p2.jpg"},
            {"a gap", "Aria 1.jpg | Aria 2.jpg | Aria 4.jpg"},
            {"one number twice", "Aria 1.jpg | Aria 1.png | Aria 2.jpg"},
            {"a scanner", "scan0001.jpg | scan0002.jpg | scan0041.jpg | scan0042.jpg"},
            {"a scanner with a separator", "Scan 1.jpg | Scan 2.jpg"},
            {"cameras", "DSC-1.jpg | DSC-2.jpg | IMG_0001.JPG | IMG_0002.JPG | IMG_0013.JPG"},
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
            {"05 - Bach - Menuet", NamesAre::Title, false, "05 - Bach - Menuet / "},
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
            {"plain", {"A,1\nB,3\n", "A 1-2 | B 3-20"}},
            {"heading, authors, CR LF", {"Title,Page,Author\r\nA,1,X\r\nB,2,Y\r\n", "A/X 1-1 | B/Y 2-20"}},
            {"semicolons", {"A, the first;1\nB;2;Y", "A, the first 1-1 | B/Y 2-20"}},
            {"tabs", {"A;B\t1\nC\t2", "A;B 1-1 | C 2-20"}},
            {"quotes",
             {"\"A, \"\"b\"\"\",1\n \"two\nlines\" ,3\nC,x\n", "A, 'b' 1-2 | two lines 3-20",
              "Line 4: \"x\" is no page of \"C\""}},
            {"a quote never closed", {"\"A,1\nB,2\n", "B 2-20", "Line 1: \"A,1\" has no page"}},
            {"byte-order mark", {"\xEF\xBB\xBFÉté,1", "Été 1-20"}},
            {"UTF-16", {QByteArray::fromHex("fffec9002c003100"), "É 1-20"}},
            {"Windows-1252", {"\xC9t\xE9,1\n\x8Cuvre,5", "Été 1-4 | Œuvre 5-20"}},
            {"one page twice", {"A,4\nB,4\nC,5\n", "A 4-4 | B 4-4 | C 5-20"}},
            {"out of order", {"B,9\nA,2\n", "A 2-8 | B 9-20"}},
            {"wrong lines",
             {"A,1\n\n,2\nB\nC,\nD,21\nE,0\nF,20", "A 1-19 | F 20-20",
              "Line 3: there is no title; Line 4: \"B\" has no page; Line 5: \"C\" has no page; "
              "Line 6: \"D\" begins on page 21, and the book has the pages 1 to 20; "
              "Line 7: \"E\" begins on page 0, and the book has the pages 1 to 20"}},
            {"old line ends", {"A,1\rB,2\rC,x\r", "A 1-1 | B 2-20", "Line 3: \"x\" is no page of \"C\""}},
            {"an offset",
             {"A,1\nB,2\nC,18", "A 5-5 | B 6-20",
              "Line 3: \"C\" begins on page 22, and the book has the pages 1 to 20", 4}},
            {"nothing", {"", ""}},
        });
    }
    void contents_areReadOrToldByLine()
    {
        const auto row = tableRow<Csv>();
        const Contents contents = contentsOf(row.bytes, row.offset, 20);
        QStringList songs;
        for (const ContentsSong &song : contents.songs)
            songs += QStringLiteral("%1%2 %3-%4")
                         .arg(song.title, song.author.isEmpty() ? "" : "/" + song.author)
                         .arg(song.firstPage)
                         .arg(song.lastPage);
        QCOMPARE(songs.join(" | "), row.songs);
        QCOMPARE(contents.troubles.join("; "), row.troubles);
    }
};

QTEST_GUILESS_MAIN(IntakeNamesTest)
#include "intake_names_test.moc"

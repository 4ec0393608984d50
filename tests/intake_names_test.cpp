#include "intake/contents.h"
#include "intake/pairing.h"
#include "intake/song_name.h"
#include "support/table.h"

#include <QTest>

// A song as "name: page page + recording"; "." is an empty place.
static QString textOf(const NamedSong &song)
{
    QStringList pages = song.pages;
    pages.replaceInStrings(QRegularExpression("^$"), ".");
    const QString recording = song.recording.isEmpty() ? QString() : " + " + song.recording;
    return song.name + ": " + pages.join(" & ") + recording;
}

static QString textOf(const QList<NamedSong> &songs)
{
    QStringList texts;
    for (const NamedSong &song : songs)
        texts += textOf(song);
    return texts.join(" | ");
}

struct Pairs {
    QString names; // "a.jpg | b.jpg"
    QString songs; // each as textOf(); those that make one song by themselves and are called so are left out
};
Q_DECLARE_METATYPE(Pairs)

static QString others(const QList<NamedSong> &songs)
{
    QList<NamedSong> others;
    for (const NamedSong &song : songs) {
        const QString file = song.pages.value(0, song.recording);
        if (song.pages.size() + !song.recording.isEmpty() != 1 || file.isEmpty()
            || song.name != file.first(file.lastIndexOf('.')))
            others += song;
    }
    return textOf(others);
}

class IntakeNamesTest : public QObject
{
    Q_OBJECT
private slots:
    void names_pairAsAPersonWould_data()
    {
        tableOf<Pairs>({
            {"sides", {"minuet-L.jpg | minuet-R.jpg", "minuet: minuet-L.jpg & minuet-R.jpg"}},
            {"a left page alone", {"minuet-L.jpg", "minuet: minuet-L.jpg"}},
            {"a right page alone", {"minuet_right.png", "minuet: . & minuet_right.png"}},
            {"two names that say left", {"minuet-L.jpg | minuet left.png", ""}},
            {"Italian",
             {"La mer destra.jpg | La mer sinistra.jpg", "La mer: La mer sinistra.jpg & La mer destra.jpg"}},
            {"sx and dx", {"Ciao (dx).jpg | Ciao (sx).jpg", "Ciao: Ciao (sx).jpg & Ciao (dx).jpg"}},
            {"German",
             {"Für Elise links.jpg | Für Elise rechts.jpg",
              "Für Elise: Für Elise links.jpg & Für Elise rechts.jpg"}},
            {"German, in words",
             {"Ständchen rechte Seite.jpg | Ständchen linke Seite.jpg",
              "Ständchen: Ständchen linke Seite.jpg & Ständchen rechte Seite.jpg"}},
            {"French",
             {"Clair de lune - page droite.png | Clair de lune - page gauche.png",
              "Clair de lune: Clair de lune - page gauche.png & Clair de lune - page droite.png"}},
            {"an archive's own names",
             {"12L.jpg | 12R.jpg | 13L.jpg", "12: 12L.jpg & 12R.jpg | 13: 13L.jpg"}},
            {"case, blanks and endings differ",
             {"Ave_Maria_1.JPG | ave maria 2.png", "Ave_Maria: Ave_Maria_1.JPG & ave maria 2.png"}},
            {"letters composed and not",
             {"Für Elise 1.jpg | Fu\u0308r Elise 2.jpg",
              "Für Elise: Für Elise 1.jpg & Fu\u0308r Elise 2.jpg"}},
            {"numbers", {"Menuett 1.jpg | Menuett 2.jpg", "Menuett: Menuett 1.jpg & Menuett 2.jpg"}},
            {"numbers with zeros",
             {"Menuett_01.jpg | Menuett_02.jpg", "Menuett: Menuett_01.jpg & Menuett_02.jpg"}},
            {"numbers in brackets",
             {"Menuett (1).jpg | Menuett(2).jpg | Menuett [3].jpg",
              "Menuett: Menuett (1).jpg & Menuett(2).jpg | Menuett (2): Menuett [3].jpg"}},
            {"the second of two of one name",
             {"Für Elise.png | Für Elise (2).png", "Für Elise: Für Elise.png & Für Elise (2).png"}},
            {"the second alone", {"Für Elise (2).png", ""}},
            {"a second work", {"Waltz.jpg | Waltz 2.jpg", ""}},
            {"a number alone", {"Song 2.jpg", ""}},
            {"a letter alone", {"a.jpg", ""}},
            {"letters",
             {"Largo a.jpg | Largo b.jpg | Largo c.jpg",
              "Largo: Largo a.jpg & Largo b.jpg | Largo (2): Largo c.jpg"}},
            {"letters that do not run on", {"Largo a.jpg | Largo d.jpg", ""}},
            {"keys", {"Sonata in a.jpg | Sonata in b.jpg", ""}},
            {"p1",
             {"05 - Bach - Menuet p1.tiff | 05 - Bach - Menuet p2.tiff",
              "05 - Bach - Menuet: 05 - Bach - Menuet p1.tiff & 05 - Bach - Menuet p2.tiff"}},
            {"p1 alone", {"05 - Bach - Menuet p1.tiff", ""}},
            {"page", {"Hymn page 2.jpg | Hymn Page 1.jpg", "Hymn: Hymn Page 1.jpg & Hymn page 2.jpg"}},
            {"Seite", {"Lied Seite 1.jpg | Lied S. 2.jpg", "Lied: Lied Seite 1.jpg & Lied S. 2.jpg"}},
            {"pagina", {"Canto pag.1.jpg | Canto pag.2.jpg", "Canto: Canto pag.1.jpg & Canto pag.2.jpg"}},
            {"1 of 2", {"Waltz 1 of 2.jpg | Waltz 2 of 2.jpg", "Waltz: Waltz 1 of 2.jpg & Waltz 2 of 2.jpg"}},
            {"symphonies", {"Symphony 5.jpg | Symphony 9.jpg", ""}},
            {"works counted from 1",
             {"Prelude No. 1.jpg | Prelude No. 2.jpg | Opus 1.jpg | Opus 2.jpg | Valse n°1.jpg | Valse "
              "n°2.jpg",
              ""}},
            {"pages of a counted work",
             {"Prelude No. 1 p1.jpg | Prelude No. 1 p2.jpg",
              "Prelude No. 1: Prelude No. 1 p1.jpg & Prelude No. 1 p2.jpg"}},
            {"a gap", {"Aria 1.jpg | Aria 2.jpg | Aria 4.jpg", ""}},
            {"one number twice", {"Aria 1.jpg | Aria 1.png | Aria 2.jpg", ""}},
            {"a scanner", {"scan0041.jpg | scan0042.jpg | scan0001.jpg | scan0002.jpg", ""}},
            {"a scanner with a separator", {"Scan 1.jpg | Scan 2.jpg | IMG_0001.JPG | IMG_0002.JPG", ""}},
            {"a French scanner", {"Numérisé 1.jpg | Numérisé 2.jpg | Numérisé 12.jpg", ""}},
            {"a camera", {"IMG_0013.JPG | IMG_0014.JPG | DSC-1.jpg | DSC-2.jpg", ""}},
            {"dates",
             {"20231104_0001.jpg | 20231104_0002.jpg | Scan_20231104.jpg | Scan_20231104 (2).jpg", ""}},
            {"four pages",
             {"Fuge p1.jpg | Fuge p2.jpg | Fuge p3.jpg | Fuge p4.jpg",
              "Fuge: Fuge p1.jpg & Fuge p2.jpg | Fuge (2): Fuge p3.jpg & Fuge p4.jpg"}},
            {"recordings",
             {"Menuet-L.jpg | menuet.mp3 | Largo.png | Largo.mp3 | Loose.mp3",
              "Largo: Largo.png + Largo.mp3 | Menuet: Menuet-L.jpg + menuet.mp3"}},
            {"a PDF with its recording", {"Book.pdf | Book.mp3 | Book.jpg", "Book: Book.jpg + Book.mp3"}},
            {"nothing of ours", {"Thumbs.db | ._a.jpg | notes.txt | noending", ""}},
        });
    }
    void names_pairAsAPersonWould()
    {
        const auto row = tableRow<Pairs>();
        QStringList names = row.names.split(" | ");
        QCOMPARE(others(pairByName(names)), row.songs);
        std::reverse(names.begin(), names.end());
        QCOMPARE(others(pairByName(names)), row.songs);
    }

    void everyFile_isInOneSong()
    {
        QStringList names;
        for (int i = 1; i <= 40; i += 1)
            names += QStringLiteral("Hymn %1.jpg").arg(i);
        QCOMPARE(pairByName(names).size(), 40);
        QCOMPARE(pairByName(names)[9].name, "Hymn 10");
        const QList<NamedSong> pairs = pairInOrder(names, 2);
        QCOMPARE(pairs.size(), 20);
        QCOMPARE(textOf(pairs[4]), "Hymn 9: Hymn 9.jpg & Hymn 10.jpg");
        QCOMPARE(textOf(pairInOrder({"b.jpg", "a.jpg", "c.jpg", "a.mp3", "d.pdf"}, 2)),
                 "a: a.jpg & b.jpg + a.mp3 | c: c.jpg | d: d.pdf");
        QCOMPARE(pairInOrder(names, 1).size(), 40);
    }

    void titles_comeFromNames()
    {
        const std::tuple<const char *, NamesAre, bool, SongName> rows[] = {
            {"Für_Elise", NamesAre::Title, false, {"Für Elise", ""}},
            {"05 - Bach - Menuet", NamesAre::Title, false, {"05 - Bach - Menuet", ""}},
            {"05 - Bach - Menuet", NamesAre::AuthorTitle, true, {"Menuet", "Bach"}},
            {"05. Menuet – J. S. Bach", NamesAre::TitleAuthor, true, {"Menuet", "J. S. Bach"}},
            {"12 Menuet", NamesAre::AuthorTitle, true, {"Menuet", ""}},
            {"Jean-Luc - Ça va - la la", NamesAre::AuthorTitle, false, {"Ça va - la la", "Jean-Luc"}},
            {"1984", NamesAre::Title, true, {"1984", ""}},
            {"3te_Sinfonie", NamesAre::Title, true, {"3te Sinfonie", ""}},
            {"Dvořák \U0001F3B5 \"Largo\"", NamesAre::Title, false, {"Dvorák  'Largo'", ""}},
        };
        for (const auto &[name, namesAre, leaveOut, song] : rows)
            QCOMPARE(songNameOf(name, namesAre, leaveOut), song);
    }

    void contents_areReadOrToldByLine_data()
    {
        QTest::addColumn<QByteArray>("csv");
        QTest::addColumn<QString>("songs");
        QTest::addColumn<QString>("troubles");
        const auto row = [](const char *name, const QByteArray &csv, const char *songs,
                            const char *troubles = "") {
            QTest::newRow(name) << csv << QString(songs) << QString(troubles);
        };
        row("plain", "A,1\nB,3\n", "A 1-2 | B 3-20");
        row("heading, authors, CR LF", "Title,Page,Author\r\nA,1,X\r\nB,2,Y\r\n", "A/X 1-1 | B/Y 2-20");
        row("semicolons", "A, the first;1\nB;2;Y", "A, the first 1-1 | B/Y 2-20");
        row("tabs", "A;B\t1\nC\t2", "A;B 1-1 | C 2-20");
        row("quotes", "\"A, \"\"b\"\"\",1\n \"two\nlines\" ,3\nC,x\n", "A, 'b' 1-2 | two lines 3-20",
            "Line 4: \"x\" is no page of \"C\"");
        row("a quote never closed", "\"A,1\nB,2\n", "B 2-20", "Line 1: \"A,1\" has no page");
        row("byte-order mark", "\xEF\xBB\xBFÉté,1", "Été 1-20");
        row("UTF-16",
            QByteArray("\xFF\xFE\xC9\0,\0"
                       "1\0",
                       8),
            "É 1-20");
        row("Windows-1252", "\xC9t\xE9,1\n\x8Cuvre,5", "Été 1-4 | Œuvre 5-20");
        row("one page twice", "A,4\nB,4\nC,5\n", "A 4-4 | B 4-4 | C 5-20");
        row("out of order", "B,9\nA,2\n", "A 2-8 | B 9-20");
        row("wrong lines", "A,1\n\n,2\nB\nC,\nD,21\nE,0\nF,20", "A 1-19 | F 20-20",
            "Line 3: there is no title; Line 4: \"B\" has no page; Line 5: \"C\" has no page; "
            "Line 6: \"D\" begins on page 21, and the book has the pages 1 to 20; "
            "Line 7: \"E\" begins on page 0, and the book has the pages 1 to 20");
        row("old line ends", "A,1\rB,2\rC,x\r", "A 1-1 | B 2-20", "Line 3: \"x\" is no page of \"C\"");
        row("nothing", "", "");
    }
    void contents_areReadOrToldByLine()
    {
        QFETCH(QByteArray, csv);
        const Contents contents = contentsOf(csv, 0, 20);
        QStringList songs;
        for (const ContentsSong &song : contents.songs)
            songs += QStringLiteral("%1%2 %3-%4")
                         .arg(song.title, song.author.isEmpty() ? "" : "/" + song.author)
                         .arg(song.firstPage)
                         .arg(song.lastPage);
        QTEST(songs.join(" | "), "songs");
        QTEST(contents.troubles.join("; "), "troubles");
    }

    void anOffset_isAddedToEveryPage()
    {
        const Contents contents = contentsOf("A,1\nB,2\nC,18", 4, 20);
        QCOMPARE(contents.songs, QList<ContentsSong>({{"A", "", 5, 5}, {"B", "", 6, 20}}));
    }
};

QTEST_GUILESS_MAIN(IntakeNamesTest)
#include "intake_names_test.moc"

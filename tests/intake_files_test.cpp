#include "archive/archive_file.h"
#include "intake/bring_in.h"
#include "intake/coming_table.h"
#include "intake/page_picture.h"
#include "playlists/playlist_file.h"
#include "support/table.h"
#include "support/test_folder.h"

#include <QBuffer>
#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QImage>
#include <QImageWriter>
#include <QTest>

// Left half red, right half blue, 40 by 20, in any format.
static QByteArray picture(const char *format, QImage::Format pixels = QImage::Format_RGB32,
                          QSize size = {40, 20})
{
    QImage image(2, 1, QImage::Format_RGB32);
    image.setPixelColor(0, 0, Qt::red);
    image.setPixelColor(1, 0, Qt::blue);
    return encoded(image.scaled(size).convertToFormat(pixels), format, 100);
}

static QByteArray progressive()
{
    QBuffer buffer;
    QImageWriter writer(&buffer, "jpg");
    writer.setProgressiveScanWrite(true);
    writer.write(QImage::fromData(picture("png", QImage::Format_RGB32, {400, 200})));
    return buffer.data();
}

static QByteArray transparent()
{
    QImage clear(40, 20, QImage::Format_ARGB32);
    clear.fill(Qt::transparent);
    return encoded(clear, "png");
}

// Its EXIF data say that it is to be turned by a quarter.
static QByteArray turnedByExif()
{
    static constexpr char exif[] = "ffe1001e45786966000049492a0008000000010012010300010000000600000000";
    return picture("jpg").insert(2, QByteArray::fromHex(exif));
}

// The same in the four colours of a printer.
static const QByteArray cmyk = QByteArray::fromBase64(
    "/9j/7gAOQWRvYmUAZAAAAAAC/9sAQwANCQoLCggNCwoLDg4NDxMgFRMSEhMnHB4XIC4pMTAuKS0sMzpKPjM2RjcsLU"
    "BXQUZMTlJTUjI+WmFaUGBKUVJP/9sAQwEODg4TERMmFRUmTzUtNU9PT09PT09PT09PT09PT09PT09PT09PT09PT09P"
    "T09PT09PT09PT09PT09PT09PT09P/8AAFAgACAAQBAEiAAIRAQMRAQQiAP/EABYAAQEBAAAAAAAAAAAAAAAAAAAFB/"
    "/EABQQAQAAAAAAAAAAAAAAAAAAAAD/xAAUAQEAAAAAAAAAAAAAAAAAAAAF/8QAGREAAgMBAAAAAAAAAAAAAAAAAAZD"
    "gsHC/9oADgQBAAIRAxEEAAA/AL66AdshtyALEtdNOAf/2Q==");

// A PDF of empty A4 pages, or of what is drawn on each.
static QByteArray pdf(int pages,
                      const QByteArray &drawn = "1 0 0 rg 0 0 298 842 re f 0 0 1 rg 298 0 298 842 re f",
                      const QByteArray &objects = {}, const QByteArray &trailer = {})
{
    QByteArray bytes = "%PDF-1.4\n1 0 obj<</Type/Catalog/Pages 2 0 R>>endobj\n2 0 obj<</Type/Pages/Count "
        + QByteArray::number(pages) + "/Kids[";
    for (int i = 0; i < pages; i += 1)
        bytes += QByteArray::number(4 + i) + " 0 R ";
    bytes += "]>>endobj\n3 0 obj<</Length " + QByteArray::number(drawn.size()) + ">>stream\n" + drawn
        + "\nendstream endobj\n";
    for (int i = 0; i < pages; i += 1)
        bytes += QByteArray::number(4 + i)
            + " 0 obj<</Type/Page/Parent 2 0 R/MediaBox[0 0 596 842]/Resources<</XObject<</X0 1000 0 R>>>>"
              "/Contents 3 0 R>>endobj\n";
    return bytes + objects + "trailer<</Root 1 0 R" + trailer + ">>\n%%EOF\n";
}

static QString absolute(const QString &path)
{
    return path.isEmpty() ? path : QFileInfo(path).absoluteFilePath();
}

static ComingSong song(const QString &title, const QString &left, const QString &right = {})
{
    ComingSong song;
    song.title = title;
    song.left.file = absolute(left);
    song.right.file = absolute(right);
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

// The colour at a place of an image, counted from 0 to 1: "red", "blue", "white" or the value.
static QString colourAt(const QImage &image, double x, double y)
{
    const std::pair<QColor, QString> names[] = {{Qt::red, "red"}, {Qt::blue, "blue"}, {Qt::white, "white"}};
    const QColor colour = image.pixelColor(int(image.width() * x), int(image.height() * y));
    for (const auto &[known, name] : names) {
        if (qAbs(known.red() - colour.red()) + qAbs(known.green() - colour.green())
                + qAbs(known.blue() - colour.blue())
            < 60)
            return name;
    }
    return colour.name();
}

// All files below the working directory with what they hold.
static QMap<QString, QByteArray> tree()
{
    QMap<QString, QByteArray> tree;
    const auto all = QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot;
    for (QDirIterator files(".", all, QDirIterator::Subdirectories); files.hasNext();) {
        const QString path = files.next();
        tree[path] = contents(path);
    }
    return tree;
}

// An archive of one song, loaded.
struct Archive : TestFolder {
    Archive()
    {
        putArchive({"One|||0"});
        (void)loadArchive();
    }
};

struct Shaping {
    QByteArray bytes;
    QString colours; // left and right, or upper and lower
    int turns = 0;
    ComingPage::Part part = ComingPage::Whole;
    int turnsOfPart = 0;
};

struct Hostile {
    QByteArray bytes;
    QString reason; // what is said of it; empty: it comes
};

class IntakeFilesTest : public QObject
{
    Q_OBJECT
private slots:
    void jpegs_comeByteForByte()
    {
        const Archive archive;
        put("in/a.jpg", picture("jpg"));
        put("in/b.jpeg", picture("jpg", QImage::Format_Grayscale8));
        put("in/c.png", picture("jpg")); // named wrongly
        put("in/r.mp3", "sound");
        put("spartiti/m.jpg", "empty sheet");
        ComingSong second = song("Third", "in/c.png");
        second.recording = absolute("in/r.mp3");
        second.category = 7;
        const BringInReport report = bringIn({song("Second", "in/a.jpg", "in/b.jpeg"), second}, "Tonight");
        QVERIFY(report.result.ok() && report.playlist.ok() && troublesOf(report).isEmpty());
        QCOMPARE(report.firstSong, 2);
        QCOMPARE(contents("spartiti/archivio.js"), archiveOf({"One|||0", "Second|||0", "Third|||7"}));
        QCOMPARE(contents("spartiti/2L.jpg"), contents("in/a.jpg"));
        QCOMPARE(contents("spartiti/2R.jpg"), contents("in/b.jpeg"));
        QCOMPARE(contents("spartiti/3L.jpg"), contents("in/c.png"));
        QCOMPARE(contents("spartiti/3R.jpg"), QByteArray("empty sheet"));
        QCOMPARE(contents("spartiti/audio/3.mp3"), QByteArray("sound"));
        Playlists playlists;
        QVERIFY(readPlaylistFile(playlists).ok());
        QCOMPARE(playlists.storedUnder("Tonight"), QStringList("2,3,#"));
        QVERIFY(!QFileInfo::exists("spartiti/arriving"));
    }

    void otherPictures_becomeTheRightPages_data()
    {
        const QByteArray jpeg = picture("jpg"), png = picture("png");
        tableOf<Shaping>({
            {"png", {png, "red|blue"}},
            {"png of 16 bits", {picture("png", QImage::Format_RGBA64), "red|blue"}},
            {"png of 16 bits of grey", {picture("png", QImage::Format_Grayscale16), "#828282|#464646"}},
            {"png of 1 bit", {picture("png", QImage::Format_Mono), "#000000|#000000"}},
            {"png with a palette", {picture("png", QImage::Format_Indexed8), "red|blue"}},
            {"transparent", {transparent(), "white|white"}},
            {"jpeg turned", {jpeg, "red/blue", 1}},
            {"jpeg turned thrice", {jpeg, "blue/red", 3}},
            {"left half", {jpeg, "red|red", 0, ComingPage::LeftHalf}},
            {"right half", {png, "blue|blue", 0, ComingPage::RightHalf}},
            {"half of a turned one", {png, "red/blue", 1, ComingPage::LeftHalf}},
            {"turned half of a turned one", {png, "blue|red", 1, ComingPage::RightHalf, 1}},
            {"half of one that EXIF turns", {turnedByExif(), "red/blue", 0, ComingPage::LeftHalf}},
            {"half of a progressive jpeg", {progressive(), "red|red", 0, ComingPage::LeftHalf}},
            {"half of a jpeg for printers", {cmyk, "blue|blue", 0, ComingPage::RightHalf}},
            {"pdf", {pdf(1), "red|blue"}},
            {"half of a pdf", {pdf(1), "blue|blue", 0, ComingPage::RightHalf}},
            {"pdf turned", {pdf(1), "red/blue", 1}},
        });
        for (const char *format : {"tiff", "webp"}) {
            if (const QByteArray bytes = picture(format); !bytes.isEmpty())
                QTest::newRow(format) << Shaping{bytes, "red|blue"};
        }
    }
    void otherPictures_becomeTheRightPages()
    {
        const Archive archive;
        const auto row = tableRow<Shaping>();
        put("in/x", row.bytes);
        const int pdfPage = row.bytes.startsWith("%PDF") ? 1 : 0;
        const ComingPage page{"in/x", pdfPage, 200, row.turns, row.part, row.turnsOfPart};
        ComingSong one;
        one.left = page;
        QCOMPARE(bringIn({one}, {}).cannotCome.value(0), QString());
        QCOMPARE(contents("spartiti/2L.jpg").first(2), QByteArray("\xFF\xD8"));
        const QImage image("spartiti/2L.jpg");
        if (row.colours.contains('/'))
            QCOMPARE(colourAt(image, 0.5, 0.2) + '/' + colourAt(image, 0.5, 0.8), row.colours);
        else
            QCOMPARE(colourAt(image, 0.2, 0.5) + '|' + colourAt(image, 0.8, 0.5), row.colours);
        if (page.pdfPage > 0 && page.isAsItWas())
            QCOMPARE(image.size(), QSize(1656, 2339));
        if (page.pdfPage == 0) {
            const QImage small = smallPicture(page, {20, 20});
            QVERIFY(!small.isNull() && small.width() <= 20 && small.height() <= 20);
        }
    }

    void hostileFiles_areNamedBeforeAnythingComes_data()
    {
        const QByteArray png = picture("png", QImage::Format_RGB32, {300, 300});
        QByteArray bomb = picture("bmp");
        bomb.replace(18, 8, QByteArray::fromHex("204e0000204e0000")); // 20,000 by 20,000
        const QByteArray largePng = picture("png", QImage::Format_Mono, {20'000, 2'001});
        QByteArray largeJpeg = picture("jpg");
        largeJpeg.replace(largeJpeg.indexOf("\xFF\xC0") + 5, 4, QByteArray::fromHex("4e204e20"));
        tableOf<Hostile>({
            {"empty", {"", "it is empty"}},
            {"text", {"this is a text", "it is not a picture"}},
            {"a bmp of 20,000 by 20,000", {bomb, "it is broken"}},
            {"a jpeg of 20,000 by 20,000", {largeJpeg, "it has 20000 by 20000 pixels"}},
            {"a png of 20,000 by 2,001", {largePng, "it has 20000 by 2001 pixels"}},
            {"a cut png", {png.first(png.size() / 2), "it is broken"}},
            {"a cut jpeg", {picture("jpg", QImage::Format_RGB32, {300, 300}).first(2000), ""}},
        });
    }
    void hostileFiles_areNamedBeforeAnythingComes()
    {
        const Archive archive;
        const auto row = tableRow<Hostile>();
        put("in/x.jpg", row.bytes);
        put("in/good.jpg", picture("jpg"));
        const QList<ComingSong> songs{song("Good", "in/good.jpg"), song("Odd", "in/x.jpg")};
        const BringInReport report = bringIn(songs, {});
        QVERIFY(!report.cannotCome.contains(0));
        QVERIFY2(report.cannotCome.value(1).contains(row.reason), qPrintable(report.cannotCome.value(1)));
        QCOMPARE(report.result.ok(), row.reason.isEmpty());
        QCOMPARE(namesIn("spartiti").contains("2L.jpg"), row.reason.isEmpty());
        QVERIFY(bringIn(songs.first(1), {}).result.ok());
        if (row.reason.isEmpty())
            QVERIFY(isCutShort("in/x.jpg") && !isCutShort("in/good.jpg"));
    }

    void pdfs_tellTheirPagesOrWhyNot()
    {
        const TestFolder folder;
        put("two.pdf", pdf(2));
        put("none.pdf", pdf(0));
        put("text.pdf", "no PDF");
        put("huge.pdf", pdf(1).replace("596 842", "14400 14400"));
        const QByteArray key(32, 'x');
        put("locked.pdf",
            pdf(1, {}, {},
                "/Encrypt<</Filter/Standard/V 1/R 2/P -4/O(" + key + ")/U(" + key + ")>>/ID[<00><00>]"));
        const QStringList files{"two.pdf", "none.pdf", "text.pdf", "huge.pdf", "locked.pdf"};
        QHash<QString, PdfInfo> infos = readPdfs(files);
        QCOMPARE(infos["two.pdf"].dpi, QList<int>({200, 200}));
        QCOMPARE(infos["none.pdf"].result.reason, "it has no pages");
        QCOMPARE(infos["text.pdf"].result.reason, "it is broken, or no PDF");
        QCOMPARE(infos["locked.pdf"].result.reason, "it is locked with a password");
        QVERIFY(infos["huge.pdf"].dpi.value(0) < 50);
        QVERIFY(readPdfs(files, [](int, int) { return false; }).isEmpty());
        const QByteArray path = qgetenv("PATH");
        qputenv("PATH", "/nowhere");
        infos = readPdfs({"two.pdf"});
        qputenv("PATH", path);
        QCOMPARE(infos["two.pdf"].result.reason, "PDF needs poppler-utils");
    }

    void aPdfThatRunsForEver_isEnded()
    {
        const TestFolder folder;
        // Forms that each draw the next one ten times over.
        QByteArray forms;
        for (int i = 0; i < 20; i += 1) {
            const QByteArray next = "/X" + QByteArray::number(i + 1) + " Do ";
            forms += QByteArray::number(1000 + i)
                + " 0 obj<</Type/XObject/Subtype/Form/BBox[0 0 596 842]/Resources<</XObject<</X"
                + QByteArray::number(i + 1) + ' ' + QByteArray::number(1001 + i) + " 0 R>>>>/Length "
                + QByteArray::number(next.size() * 10) + ">>stream\n" + next.repeated(10)
                + "\nendstream endobj\n";
        }
        put("forever.pdf", pdf(1, "/X0 Do", forms));
        put("good.pdf", pdf(1));
        Jobs limited(1);
        limited.add(pageJob("forever.pdf", 1, 1, 200, false));
        const Jobs::Outcome outcome = limited.take(0, {});
        QCOMPARE(resultOf(outcome, "forever.pdf").reason, "it takes too long to be made into a page");
        Jobs jobs;
        jobs.add(pageJob("forever.pdf", 1, 1, 200, false));
        jobs.add(pageJob("good.pdf", 1, 1, 200, false));
        QVERIFY(resultOf(jobs.take(1, {}), "good.pdf").ok());
        QElapsedTimer since;
        since.start();
        Jobs stopped(60);
        stopped.add(pageJob("forever.pdf", 1, 1, 200, false));
        QCOMPARE(stopped.take(0, [] { return false; }).end, Jobs::End::Stopped);
        QVERIFY(since.elapsed() < 5000);
    }

    void cancelledAtAnyMoment_leavesTheFilesAsTheyWere()
    {
        const Archive archive;
        Module1.recTitle[1] = "typed";
        put("in/a.jpg", picture("jpg"));
        put("in/b.png", picture("png"));
        put("in/c.pdf", pdf(2));
        ComingSong book = song("Book", {});
        book.left = {.file = "in/c.pdf", .pdfPage = 1, .dpi = 10};
        book.right = {.file = "in/c.pdf", .pdfPage = 2, .dpi = 10, .turns = 1};
        const QList<ComingSong> songs{song("A", "in/a.jpg", "in/b.png"), book};
        const auto before = tree();
        for (int stop = 0;; stop += 1) {
            int asked = 0;
            const Result result = bringIn(songs, "List", [&](int, int) { return asked++ < stop; }).result;
            if (result.ok())
                break;
            QCOMPARE(result.kind, Result::Kind::Cancelled);
            QCOMPARE(tree(), before);
            QCOMPARE(Module1.recTitle[2], QString());
        }
        QCOMPARE(contents("spartiti/archivio.js"), archiveOf({"typed|||0", "A|||0", "Book|||0"}));
    }

    void whatCannotBe_isRefusedBefore()
    {
        const Archive archive;
        put("in/a.jpg", picture("jpg"));
        put("spartiti/playlist.js", fileOf("playlist", "\"Here\",\"1,#\",\r\n"));
        const QList<ComingSong> songs{song("A", "in/a.jpg")};
        const auto before = tree();
        QVERIFY(bringIn(songs, "Here").result.reason.contains("already"));
        QVERIFY(!bringIn(songs, "];").result.ok());
        Module1.archiveRefusal = "It is damaged.";
        QCOMPARE(bringIn(songs, {}).result.reason, "It is damaged.");
        QCOMPARE(tree(), before);
    }

    void folders_becomeSongsAndKnownOnesAreNotTicked()
    {
        const TestFolder folder;
        put("in/Menuet-L.jpg", picture("jpg"));
        put("in/Menuet-R.jpg", picture("jpg", QImage::Format_Grayscale8));
        put("in/deep/er/Bach - Air p1.png", picture("png"));
        put("in/deep/er/Bach - Air p2.png", picture("png"));
        put("in/deep/Book.pdf", pdf(3));
        put("in/notes.txt", "text");
        put("in/.hidden.jpg", "hidden");
        QVERIFY(QFile::link(QFileInfo("in").absoluteFilePath(), "in/deep/loop"));
        putArchive({"One|||0"});
        (void)loadArchive();
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
        const TestFolder folder;
        put("book.pdf", pdf(300));
        const PdfInfo info = readPdfs({"book.pdf"})["book.pdf"];
        KnownSongs known;
        const auto entries = contentsOf("A,1,Me\nB,4\nC,299", 0, static_cast<int>(info.dpi.size())).songs;
        const QList<ComingSong> songs = songsOfBook("book.pdf", info, entries, known);
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

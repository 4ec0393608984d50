#include "intake/bring_in.h"
#include "intake/page_picture.h"
#include "intake/pdf.h"
#include "support/scans.h"
#include "support/table.h"

// Its EXIF data say that it is to be turned by a quarter.
static QByteArray turnedByExif()
{
    static constexpr char exif[] = "ffe1001e45786966000049492a00080000000100120103000100000006000000";
    return scan("jpg").insert(2, QByteArray::fromHex(exif));
}

// A JPEG that claims to have 20,000 by 20,000 pixels, or others.
static QByteArray largeJpeg(const char *size = "4e204e20")
{
    QByteArray jpeg = scan("jpg");
    return jpeg.replace(jpeg.indexOf("\xFF\xC0") + 5, 4, QByteArray::fromHex(size));
}

// The colours of an image left and right, "red|blue", or above and below, "red/blue".
static QString coloursOf(const QImage &image, QChar between)
{
    static const QStringList names{"red", "blue", "white", "light", "dark", "black"};
    static const QList<QRgb> colours{0xFFFF0000, 0xFF0000FF, 0xFFFFFFFF, 0xFF828282, 0xFF464646, 0xFF000000};
    const QImage found = image.convertToFormat(QImage::Format_Indexed8, colours, Qt::ThresholdDither);
    const auto at = [&](double x, double y) {
        return names[found.pixelIndex(int(image.width() * x), int(image.height() * y))];
    };
    return between == '|' ? at(0.2, 0.5) + '|' + at(0.8, 0.5) : at(0.5, 0.2) + '/' + at(0.5, 0.8);
}

struct Shaping {
    QByteArray bytes;
    QString colours;
    int turns = 0;
    ComingPage::Part part = ComingPage::Whole;
    int turnsOfPart = 0;
};

using Refused = std::pair<QByteArray, QString>; // what is said of it; nothing: it is a page

class PagePictureTest : public FolderTest
{
    Q_OBJECT
private slots:
    void otherPictures_becomeTheRightPages_data()
    {
        QImage clear(40, 20, QImage::Format_ARGB32);
        clear.fill(Qt::transparent);
        tableOf<Shaping>({
            {"png", {scan("png"), "red|blue"}},
            {"png of 16 bits", {scan("png", QImage::Format_RGBA64), "red|blue"}},
            {"png of 16 bits of grey", {scan("png", QImage::Format_Grayscale16), "light|dark"}},
            {"png of 1 bit", {scan("png", QImage::Format_Mono), "black|black"}},
            {"transparent", {encoded(clear, "png"), "white|white"}},
            {"jpeg turned", {scan("jpg"), "red/blue", 1}},
            {"left half", {scan("jpg"), "red|red", 0, ComingPage::LeftHalf}},
            {"turned half of a turned one", {scan("png"), "blue|red", 1, ComingPage::RightHalf, 1}},
            {"half of one that EXIF turns", {turnedByExif(), "red/blue", 0, ComingPage::LeftHalf}},
            {"pdf", {pdf(1), "red|blue"}},
            {"half of a pdf", {pdf(1), "blue|blue", 0, ComingPage::RightHalf}},
        });
        for (const char *format : {"tiff", "webp"}) {
            if (const QByteArray bytes = scan(format); !bytes.isEmpty())
                QTest::newRow(format) << Shaping{bytes, "red|blue"};
        }
    }
    void otherPictures_becomeTheRightPages()
    {
        const auto row = tableRow<Shaping>();
        put("x", row.bytes);
        const QChar between = row.colours.contains('/') ? '/' : '|';
        ComingSong song;
        song.left = {"x", row.bytes.startsWith("%PDF"), 200, row.turns, row.part, row.turnsOfPart};
        QCOMPARE(bringIn({song}, {}).cannotCome.value(0), QString());
        QCOMPARE(contents("spartiti/1L.jpg").first(2), QByteArray("\xFF\xD8"));
        const QImage image("spartiti/1L.jpg");
        QCOMPARE(coloursOf(image, between), row.colours);
        if (song.left.pdfPage > 0 && song.left.isAsItWas())
            QCOMPARE(image.size(), QSize(1656, 2339));
        if (song.left.pdfPage > 0)
            return;
        const QImage small = smallPicture(song.left, {20, 20});
        QCOMPARE(small.size().boundedTo({20, 20}), small.size());
        QCOMPARE(coloursOf(small, between), row.colours);
    }

    void whatIsNoPage_isRefusedInWords_data()
    {
        QByteArray bomb = scan("bmp");
        bomb.replace(18, 8, QByteArray::fromHex("204e0000204e0000")); // 20,000 by 20,000
        QByteArray progressive = largeJpeg("17701770").replace("\xFF\xC0", "\xFF\xC2");
        progressive[progressive.indexOf("\xFF\xC2") + 11] = '\x11'; // as much of each colour as of light
        const QSize large(300, 300);
        tableOf<Refused>({
            {"empty", {"", "it is empty"}},
            {"text", {"this is a text", "it is not a picture"}},
            {"a bmp of 20,000 by 20,000", {bomb, "it is broken"}},
            {"a jpeg of 20,000 by 20,000", {largeJpeg(), "it has 20000 by 20000 pixels"}},
            {"a progressive jpeg", {progressive, "it is a progressive JPEG too large for a page"}},
            {"a png of 20,000 by 2,001",
             {scan("png", QImage::Format_Mono, {20'000, 2'001}), "it has 20000 by 2001 pixels"}},
            {"a cut png", {scan("png", QImage::Format_RGB32, large).chopped(300), "it is broken"}},
            {"a cut jpeg", {scan("jpg", QImage::Format_RGB32, large).first(2000), ""}},
        });
    }
    void whatIsNoPage_isRefusedInWords()
    {
        const auto [bytes, reason] = tableRow<Refused>();
        put("x.jpg", bytes);
        put("good.jpg", scan("jpg"));
        ComingSong good, odd;
        good.left.file = "good.jpg";
        odd.left.file = "x.jpg";
        const BringInReport report = bringIn({good, odd}, {});
        QCOMPARE(report.cannotCome.keys(), reason.isEmpty() ? QList<qsizetype>() : QList<qsizetype>{1});
        QCOMPARE(report.cannotCome.value(1).section(": ", 1).left(reason.size()), reason);
        QCOMPARE(namesIn("spartiti").size(), reason.isEmpty() ? 3 : 0);
        QCOMPARE(isCutShort("x.jpg"), reason.isEmpty());
        QVERIFY(!isCutShort("good.jpg"));
    }

    void pdfs_tellTheirPagesOrWhyNot()
    {
        const QByteArray key(32, 'x');
        put("two.pdf", pdf(2));
        put("none.pdf", pdf(0));
        put("text.pdf", "no PDF");
        put("huge.pdf", pdf(1).replace("596 842", "14400 14400"));
        put("locked.pdf",
            pdf(1).replace("trailer<<",
                           "trailer<</ID[<00><00>]/Encrypt<</Filter/Standard/V 1/R 2/P -4/O(" + key + ")/U("
                               + key + ")>>"));
        const auto infos = readPdfs({"two.pdf", "none.pdf", "text.pdf", "huge.pdf", "locked.pdf"});
        QCOMPARE(infos["two.pdf"].dpi, QList<int>({200, 200}));
        QCOMPARE(infos["none.pdf"].result.reason, "it has no pages");
        QCOMPARE(infos["text.pdf"].result.reason, "it is broken, or no PDF");
        QCOMPARE(infos["locked.pdf"].result.reason, "it is locked with a password");
        QCOMPARE(infos["huge.pdf"].dpi, QList<int>({25}));
        QVERIFY(readPdfs({"two.pdf"}, [](int, int) { return false; }).isEmpty());
        const QByteArray path = qgetenv("PATH");
        qputenv("PATH", "/nowhere");
        const QString reason = readPdfs({"two.pdf"})["two.pdf"].result.reason;
        qputenv("PATH", path);
        QCOMPARE(reason, "PDF needs poppler-utils");
    }

    void aPdfThatRunsForEver_isEnded()
    {
        put("endless.pdf", pdf(1, 100'000));
        put("good.pdf", pdf(1));
        const Jobs::Job endless = pageJob("endless.pdf", 1, 1, 200, false);
        Jobs jobs(2), patient;
        jobs.add(endless);
        jobs.add(endless);
        const size_t good = jobs.add(pageJob("good.pdf", 1, 1, 200, false));
        QCOMPARE(resultOf(jobs.take(0, {}), "endless.pdf").reason,
                 "it takes too long to be made into a page");
        QVERIFY(resultOf(jobs.take(good, {}), "good.pdf").ok()); // the second is passed over
        patient.add(endless);
        QCOMPARE(patient.take(0, [] { return false; }).end, Jobs::End::Stopped);
    }
};

QTEST_GUILESS_MAIN(PagePictureTest)
#include "page_picture_test.moc"

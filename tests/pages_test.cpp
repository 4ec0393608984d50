#include "intake/bring_in.h"
#include "intake/page_picture.h"
#include "intake/pdf.h"
#include "pages/jpeg_header.h"
#include "pages/page_image.h"
#include "support/scans.h"

#include <QBuffer>
#include <QImageWriter>

// The same JPEG with EXIF data that say that it is to be turned by a quarter.
static QByteArray turnedByExif(QByteArray jpeg)
{
    static constexpr char exif[] = "ffe1001e45786966000049492a00080000000100120103000100000006000000";
    return jpeg.insert(2, QByteArray::fromHex(exif));
}

static QByteArray pair(int number)
{
    return QByteArray(1, char(number >> 8)) + char(number);
}

// A small JPEG that claims another size in its frame header, and perhaps another way of coding.
static QByteArray claiming(QSize size, char frame = '\xC0')
{
    QByteArray jpeg = scan("jpg");
    const qsizetype place = jpeg.indexOf("\xFF\xC0") + 1;
    jpeg[place] = frame;
    return jpeg.replace(place + 4, 4, pair(size.height()) + pair(size.width()));
}

// The beginning of a JPEG of 1,000 by 500: its frame with these components, each the samples of it across
// and down, and a scan of so many of them.
static QByteArray beginning(char frame, const QByteArray &components, char inScan)
{
    QByteArray bytes("\xFF\xD8\xFF\xE0\0\4\xFF\xC0 \xFF\xFF", 11);
    bytes += '\xFF' + QByteArray(1, frame) + pair(8 + 3 * int(components.size())) + '\x8' + pair(500)
        + pair(1000) + char(components.size());
    for (const char samples : components)
        bytes += QByteArray(1, 'k') + samples + '\0';
    return bytes + "\xFF\xDA" + pair(3) + inScan;
}

// The colours of an image left and right, "red|blue", or above and below, "red/blue".
static QString coloursOf(const QImage &image, QChar between)
{
    static const QStringList names{"red", "blue", "white", "black"};
    static const QList<QRgb> colours{0xFFFF0000, 0xFF0000FF, 0xFFFFFFFF, 0xFF000000};
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

// A file, null for a pipe, and its colour at the top right: none if not shown.
using Shown = std::pair<QByteArray, QColor>;
using Refused = std::pair<QByteArray, QString>; // what is said of it; nothing: it is a page

class PagesTest : public FolderTest
{
    Q_OBJECT
private slots:
    void decodePage_showsWhatCanBeShown_data()
    {
        const QByteArray page = scan("jpg", QImage::Format_RGB32, {2000, 3000});
        QBuffer progressive;
        QImageWriter writer(&progressive, "jpg");
        writer.setProgressiveScanWrite(true);
        writer.write(QImage::fromData(page));
        const QByteArray much = QByteArray("\xFF\xE2\x40\0", 4) + QByteArray(0x3FFE, 'x');
        tableOf<Shown>({{"jpeg", {page, Qt::blue}},
                        {"turned right", {turnedByExif(page), Qt::red}},
                        {"png", {scan("png"), Qt::blue}},
                        {"cut", {page.first(page.size() / 3), Qt::blue}},
                        {"much before the picture", {QByteArray(page).insert(2, much.repeated(3)), Qt::blue}},
                        {"progressive", {progressive.data(), Qt::blue}},
                        {"98 megapixels", {claiming({9900, 9900}), Qt::gray}},
                        {"98, progressive", {claiming({9900, 9900}, '\xC2'), {}}},
                        {"absurd", {claiming({65500, 65500}), {}}},
                        {"no picture", {"hello", {}}},
                        {"a pipe", {{}, {}}}});
    }
    void decodePage_showsWhatCanBeShown()
    {
        const auto [file, topRight] = tableRow<Shown>();
        file.isNull() ? (void)putPipe("1L.jpg") : put("1L.jpg", file);
        const QImage image = decodePage("1L.jpg", {329, 281});
        QCOMPARE(image.size(), topRight.isValid() ? QSize(329, 281) : QSize(0, 0));
        QCOMPARE(canBeShown("1L.jpg"), topRight.isValid());
        const QColor seen = image.isNull() ? QColor() : image.pixelColor(300, 20);
        QVERIFY(qAbs(seen.red() - topRight.red()) < 40 && qAbs(seen.blue() - topRight.blue()) < 40);
    }

    void decodePage_keepsWhatTheFrameCanShow()
    {
        QImage stripes(100, 1, QImage::Format_Grayscale8);
        for (int x = 0; x < stripes.width(); x += 1)
            stripes.setPixelColor(x, 0, x % 2 ? Qt::white : Qt::black);
        put("1L.jpg", encoded(stripes.scaled(4 * 300, 4 * 200), "jpg", 95));
        const QImage image = decodePage("1L.jpg", {300, 200});
        QVERIFY(qGray(image.pixel(1, 100)) < 40 && qGray(image.pixel(4, 100)) > 215);
    }

    void bytesForScans_areThoseOfAllSamples()
    {
        const qint64 grey = 125 * 63 * 128; // blocks of 64 samples
        const QByteArray full = "\x11\x11\x11", other = "\x42\x21\x11";
        const std::pair<QByteArray, qint64> files[] = {
            {beginning('\xC0', full, 3), 0}, // all in one scan
            {beginning('\xC2', full, 3), 3 * grey}, // progressive
            {beginning('\xC0', other, 1), grey + (63 * 32 + 32 * 32) * 128}, // a scan for each
            {beginning('\xC2', full, 1).chopped(5), 0},
            {'\n' + beginning('\xC2', full, 1), 0}, // no JPEG
        };
        for (auto [file, bytes] : files) {
            QBuffer buffer(&file);
            QVERIFY(buffer.open(QIODevice::ReadOnly));
            QCOMPARE(bytesForScans(buffer), bytes);
            QCOMPARE(buffer.pos(), 0);
        }
    }

    void otherPictures_becomeTheRightPages_data()
    {
        QImage clear(40, 20, QImage::Format_ARGB32);
        clear.fill(Qt::transparent);
        tableOf<Shaping>({
            {"png of 1 bit", {scan("png", QImage::Format_Mono), "black|black"}},
            {"transparent", {encoded(clear, "png"), "white|white"}},
            {"jpeg turned", {scan("jpg"), "red/blue", 1}},
            {"turned half of a turned one", {scan("png"), "blue|red", 1, ComingPage::RightHalf, 1}},
            {"half of one that EXIF turns", {turnedByExif(scan("jpg")), "red/blue", 0, ComingPage::LeftHalf}},
            {"pdf", {pdf(1), "red|blue"}},
            {"half of a pdf", {pdf(1), "blue|blue", 0, ComingPage::RightHalf}},
        });
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
        const QSize large(300, 300);
        tableOf<Refused>({
            {"empty", {"", "it is empty"}},
            {"text", {"this is a text", "it is not a picture"}},
            {"too large", {claiming({20'000, 2'001}), "it has 20000 by 2001 pixels"}},
            {"progressive",
             {claiming({9'000, 9'000}, '\xC2'), "it is a progressive JPEG too large for a page"}},
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

QTEST_GUILESS_MAIN(PagesTest)
#include "pages_test.moc"

#include "pages/jpeg_header.h"
#include "pages/page_image.h"
#include "support/table.h"
#include "support/test_folder.h"

#include <QBuffer>
#include <QImageWriter>
#include <QPainter>

// A picture of a red left and a blue right half.
static QByteArray halves(QSize size, const char *format, bool progressive = false)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::red);
    QPainter(&image).fillRect(QRect({size.width() / 2, 0}, size), Qt::blue);
    QBuffer buffer;
    QImageWriter writer(&buffer, format);
    writer.setQuality(95);
    writer.setProgressiveScanWrite(progressive);
    writer.write(image);
    return buffer.data();
}

// The same JPEG with an EXIF block that says how it is turned.
static QByteArray turned(QByteArray jpeg, char orientation)
{
    const QByteArray exif("\xFF\xE1\x00\x22"
                          "Exif\0\0MM\0*\0\0\0\x08\0\x01\x01\x12\0\x03\0\0\0\x01\0",
                          29);
    return jpeg.insert(2, exif + orientation + QByteArray(6, '\0'));
}

static QByteArray pair(int number)
{
    return QByteArray(1, char(number >> 8)) + char(number);
}

// The same JPEG claiming another size in its frame header.
static QByteArray claiming(QSize size, QByteArray jpeg)
{
    const auto frame = qMax(jpeg.indexOf("\xFF\xC0"), jpeg.indexOf("\xFF\xC2"));
    return jpeg.replace(frame + 5, 4, pair(size.height()) + pair(size.width()));
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

// A file, null for a pipe, and its colour at the top right: none if not shown.
using Shown = std::pair<QByteArray, QColor>;
using Scans = std::pair<QByteArray, qint64>; // a file, and the bytes for its scans

class PagesTest : public FolderTest
{
    Q_OBJECT
private slots:
    void decodePage_showsWhatCanBeShown_data()
    {
        const QByteArray page = halves({2000, 3000}, "JPG"), progressive = halves({200, 300}, "JPG", true);
        const QByteArray much = QByteArray("\xFF\xE2\x40\0", 4) + QByteArray(0x3FFE, 'x');
        tableOf<Shown>({{"jpeg", {page, Qt::blue}},
                        {"turned right", {turned(page, 6), Qt::red}},
                        {"turned left", {turned(page, 8), Qt::blue}},
                        {"png", {halves({20, 30}, "PNG"), Qt::blue}},
                        {"cut", {page.first(page.size() / 3), Qt::blue}},
                        {"progressive", {progressive, Qt::blue}},
                        {"much before the picture", {QByteArray(page).insert(2, much.repeated(3)), Qt::blue}},
                        {"98 megapixels", {claiming({9900, 9900}, halves({99, 99}, "JPG")), Qt::gray}},
                        {"98, progressive", {claiming({9900, 9900}, progressive), {}}},
                        {"absurd", {claiming({65500, 65500}, page), {}}},
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
        QImage stripes(4 * 300, 4 * 200, QImage::Format_Grayscale8);
        for (int x = 0; x < stripes.width(); x += 1)
            QPainter(&stripes).fillRect(x, 0, 1, stripes.height(), x / 12 % 2 ? Qt::white : Qt::black);
        QVERIFY(stripes.save("1L.jpg", "JPG", 95));
        const QImage image = decodePage("1L.jpg", {300, 200});
        QVERIFY(qGray(image.pixel(1, 100)) < 40 && qGray(image.pixel(4, 100)) > 215);
    }

    void bytesForScans_areThoseOfAllSamples_data()
    {
        const qint64 grey = 125 * 63 * 128; // blocks of 64 samples
        const QByteArray full = "\x11\x11\x11", usual = "\x22\x11\x11", wide = "\x21\x11\x11";
        tableOf<Scans>({{"one scan", {beginning('\xC0', full, 3), 0}},
                        {"one scan, grey", {beginning('\xC1', "\x11", 1), 0}},
                        {"progressive", {beginning('\xC2', full, 3), 3 * grey}},
                        {"progressive, grey", {beginning('\xC2', "\x11", 1), grey}},
                        {"progressive, arithmetic", {beginning('\xCA', full, 3), 3 * grey}},
                        {"a scan for each", {beginning('\xC0', full, 1), 3 * grey}},
                        {"half the colour", {beginning('\xC2', wide, 1), grey + 2 * 63 * 63 * 128}},
                        {"a quarter", {beginning('\xC2', usual, 1), grey + 2 * 63 * 32 * 128}},
                        {"cut", {beginning('\xC2', full, 1).chopped(5), 0}},
                        {"empty", {{}, 0}},
                        {"no jpeg", {'\n' + beginning('\xC2', full, 1), 0}}});
    }
    void bytesForScans_areThoseOfAllSamples()
    {
        auto [file, bytes] = tableRow<Scans>();
        QBuffer buffer(&file);
        QVERIFY(buffer.open(QIODevice::ReadOnly));
        QCOMPARE(bytesForScans(buffer), bytes);
        QCOMPARE(buffer.pos(), 0);
    }
};

QTEST_MAIN(PagesTest)
#include "pages_test.moc"

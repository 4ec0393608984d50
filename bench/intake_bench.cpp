#include "archive/archive_file.h"
#include "intake/bring_in.h"
#include "intake/found_files.h"
#include "intake/intake_window.h"
#include "support/ratio.h"
#include "support/test_folder.h"

#include <QApplication>
#include <QBuffer>
#include <QDir>
#include <QDirIterator>
#include <QImage>
#include <QProcess>
#include <QRandomGenerator>
#include <QThread>

static QByteArray noise(qsizetype size)
{
    QByteArray bytes(size, Qt::Uninitialized);
    QRandomGenerator::global()->fillRange(reinterpret_cast<quint32 *>(bytes.data()), size / 4);
    return bytes;
}

static QByteArray jpeg(QSize size)
{
    QImage image(size, QImage::Format_Grayscale8);
    image.fill(Qt::white);
    for (int y = 0; y < size.height(); y += 12) // as many edges as a full page of notes has
        for (int x = y % 5; x < size.width(); x += 7)
            image.setPixelColor(x, y, Qt::black);
    QBuffer buffer;
    image.save(&buffer, "jpg", 80);
    return buffer.data();
}

// Empty folders, with an archive of one song.
static void startAnew()
{
    QDir("spartiti").removeRecursively();
    QDir("made").removeRecursively();
    QDir().mkdir("made");
    Module1 = {};
    putArchive({"One|||0"});
    (void)loadArchive();
    QProcess::execute("sync", {"-f", "."});
}

static void shell(const QString &command)
{
    if (QProcess::execute("sh", {"-c", command}) != 0)
        qFatal("a baseline failed");
}

static QList<ComingSong> songsIn(const QString &folder)
{
    KnownSongs known;
    const FoundFiles found = findFiles({folder});
    return songsOf(found, readPdfs(pdfsIn(found)), {}, known);
}

static void bringInAll(const QList<ComingSong> &songs)
{
    const BringInReport report = bringIn(songs, {});
    if (!report.result.ok() || !report.notMade.isEmpty() || report.count != songs.size())
        qFatal("the songs were not brought in");
}

static void benchJpegs()
{
    const TestFolder folder;
    const QByteArray picture = jpeg({1240, 1754});
    for (int i = 1; i <= 500; i += 1)
        for (const char *side : {"L", "R"})
            put(QStringLiteral("in/Song %1-%2.jpg").arg(i).arg(side),
                picture + noise((1 << 20) - picture.size()));
    const QList<ComingSong> songs = songsIn("in");
    compare(
        {.task = "bring in 500 songs, 1,000 JPEGs of 1 MB",
         .baseline = "cp of them, one sync",
         .limit = 1.3,
         .rounds = 7,
         .prepare = startAnew},
        [&] { bringInAll(songs); }, [] { shell("cp in/*.jpg made/ && sync -f made"); });
}

// Two pages that are scans, as scanners make them.
static QByteArray scannedPdf()
{
    const QByteArray picture = jpeg({1654, 2339});
    QByteArray bytes = "%PDF-1.4\n1 0 obj<</Type/Catalog/Pages 2 0 R>>endobj\n"
                       "2 0 obj<</Type/Pages/Count 2/Kids[5 0 R 6 0 R]>>endobj\n"
                       "3 0 obj<</Length 29>>stream\nq 595 0 0 842 0 0 cm /I Do Q\nendstream endobj\n"
                       "4 0 obj<</Type/XObject/Subtype/Image/Width 1654/Height 2339/BitsPerComponent 8"
                       "/ColorSpace/DeviceGray/Filter/DCTDecode/Length "
        + QByteArray::number(picture.size()) + ">>stream\n" + picture + "\nendstream endobj\n";
    for (const char *page : {"5", "6"})
        bytes += QByteArray(page)
            + " 0 obj<</Type/Page/Parent 2 0 R/MediaBox[0 0 595 842]/Contents 3 0 R"
              "/Resources<</XObject<</I 4 0 R>>>>>>endobj\n";
    return bytes + "trailer<</Root 1 0 R>>\n%%EOF\n";
}

static void benchPdfs()
{
    const TestFolder folder;
    for (int i = 1; i <= 50; i += 1)
        put(QStringLiteral("in/%1.pdf").arg(i), scannedPdf());
    const QList<ComingSong> songs = songsIn("in");
    const QString pdftoppm =
        QStringLiteral(
            "cd in && ls | xargs -P %1 -I'{}' pdftoppm -q -r 200 -jpeg -jpegopt quality=92 '{}' ../made/'{}'")
            .arg(QThread::idealThreadCount());
    compare(
        {.task = "bring in 50 PDFs of two pages",
         .baseline = "pdftoppm by xargs -P",
         .limit = 1.2,
         .rounds = 3,
         .prepare = startAnew},
        [&] { bringInAll(songs); }, [&] { shell(pdftoppm); });
}

static void benchFolder()
{
    const TestFolder folder;
    for (int i = 1; i <= 10'000; i += 1)
        for (const char *side : {"L", "R"})
            put(QStringLiteral("in/Author %1 - Song %2-%3.jpg").arg(i % 100).arg(i).arg(side), {});
    startAnew();
    std::unique_ptr<IntakeWindow> window;
    qsizetype listed = 0;
    compare(
        {.task = "list, pair and show 20,000 files",
         .baseline = "list them",
         .limit = 2,
         .clock = Clock::Processor,
         .prepare =
             [&] {
                 window = std::make_unique<IntakeWindow>([](int) {});
                 window->setAttribute(Qt::WA_DeleteOnClose, false);
                 window->show();
                 QApplication::processEvents();
             }},
        [&] {
            window->addPaths({"in"});
            window->repaint();
        },
        [&] { listed += QDir("in").entryInfoList(QDir::Files).size(); });
    if (listed % 20'000 != 0)
        qFatal("not all were listed");
}

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    benchFolder();
    benchPdfs();
    benchJpegs();
    return 0;
}

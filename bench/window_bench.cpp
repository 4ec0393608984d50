// Browsing and starting up. Called with the name of a window, it shows that window, prints how many
// kilobytes the process then holds, and ends: that is what the start-up rows measure.
#include "controls/image_frame.h"
#include "files/data_folder.h"
#include "look/look.h"
#include "main/rooms.h"
#include "support/plain_window.h"
#include "support/ratio.h"
#include "support/test_folder.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QProcess>
#include <QTimer>

#include <cstdio>
#include <cstdlib>
#include <memory>

static long residentKilobytes()
{
    QFile statm("/proc/self/smaps_rollup");
    if (!statm.open(QIODevice::ReadOnly))
        return 0;
    const QByteArray text = statm.readAll();
    const qsizetype start = text.indexOf("Rss:") + 4;
    return text.mid(start, text.indexOf("kB", start) - start).trimmed().toLong();
}

// Ends the program when the first window has been painted.
class EndWhenPainted : public QObject
{
protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Expose)
            QTimer::singleShot(0, [] { QCoreApplication::exit(); });
        return false;
    }
};

static int showAndEnd(const QString &window)
{
    EndWhenPainted end;
    qApp->installEventFilter(&end);
    std::unique_ptr<Rooms> rooms;
    std::unique_ptr<QWidget> plain;
    if (window == "Form1") {
        rooms = std::make_unique<Rooms>();
        rooms->start();
    } else if (window == "Form1 alone") { // nothing keeps what is replaced and typed
        rooms = std::make_unique<Rooms>();
        rooms->form1.show();
    } else if (window == "plain") {
        plain = std::make_unique<PlainWindow>();
        plain->show();
    } else {
        plain = std::make_unique<QWidget>();
        plain->setFixedSize(734, 648);
        if (window == "word")
            new QLabel("Tessaline", plain.get());
        plain->show();
    }
    QApplication::exec();
    std::printf("%ld\n", residentKilobytes());
    std::fflush(stdout);
    std::_Exit(0);
}

static long startWindow(const QString &window)
{
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), {window});
    process.waitForFinished();
    return process.readAllStandardOutput().trimmed().toLong();
}

static void djpeg(const QString &path)
{
    QProcess process;
    process.start("djpeg", {"-scale", "1/8", "-outfile", "/dev/null", path});
    if (!process.waitForFinished() || process.exitCode() != 0)
        qFatal("djpeg is missing: install libjpeg-turbo-progs");
}

static void putScans(const QString &demo)
{
    for (const Page page : {Page::Left, Page::Right}) {
        const QImage scan = QImage(pagePath(2, page, demo))
                                .scaled(2480, 3508, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        if (!scan.save(pagePath(1, page), "JPG", 85))
            qFatal("cannot make the scans");
    }
}

static void compareBrowsing()
{
    ImageFrame left(nullptr);
    ImageFrame right(nullptr);
    for (ImageFrame *frame : {&left, &right})
        frame->resize(329, 281);
    const auto browse = [&] {
        left.showFile(pagePath(1, Page::Left));
        right.showFile(pagePath(1, Page::Right));
    };
    const auto decode = [] {
        djpeg(pagePath(1, Page::Left));
        djpeg(pagePath(1, Page::Right));
    };
    compare({"browse to two A4 scans, 300 dpi", "djpeg -scale 1/8 twice", 1.3, 15, Clock::Processor}, browse,
            decode);
}

static void printMemoryOver(const char *baseline, long kilobytes, int limit)
{
    std::printf("| memory on 9,999 records, MB over %s | %.1f | | | | %d |\n", baseline,
                static_cast<double>(startWindow("Form1") - kilobytes) / 1024, limit);
}

static void compareStarting()
{
    const auto start = [] { startWindow("Form1"); };
    compare({"start on 9,999 records", "an empty window of the same size", 1.5}, start,
            [] { startWindow("empty"); });
    compare({"start on 9,999 records", "the same with one word in it, which loads the fonts", 1.5}, start,
            [] { startWindow("word"); });
    compare({"start on 9,999 records", "a plain Qt window with the same controls, texts and fonts", 1.25},
            start, [] { startWindow("plain"); });
    compare({"start on 9,999 records", "the same without earlier versions and recovery", 1.05, 51}, start,
            [] { startWindow("Form1 alone"); });
    printMemoryOver("the empty window", startWindow("empty"), 16);
    printMemoryOver("the window with one word", startWindow("word"), 12);
}

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    const QString window = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QString();
    if (window == "plain")
        applyPlainLook();
    else
        applyLook(app);
    if (!window.isEmpty())
        return showAndEnd(window);

    const QString demo = QDir::currentPath() + "/demo";
    TestFolder folder;
    qputenv("XDG_DATA_HOME", QFile::encodeName(QDir::current().filePath("share")));
    putArchive(QStringList(9999, "A title of usual length|Some author|two tags|3"));
    putScans(demo);
    compareBrowsing();
    compareStarting();
    return 0;
}

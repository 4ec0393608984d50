// What looking through an archive costs, and carrying it to a stand.
#include "files/data_folder.h"
#include "files/platform.h"
#include "files/safe_write.h"
#include "stand/archive_check.h"
#include "stand/stand_copy.h"
#include "support/ratio.h"
#include "support/test_folder.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QRandomGenerator>

static void mustBe(bool isSo, const char *what)
{
    if (!isSo)
        qFatal("%s", what);
}

static void putPages(int songs, const QByteArray &page)
{
    QStringList records;
    for (int n = 1; n <= songs; n += 1) {
        records += QStringLiteral("Title number %1|An author of songs|ballad slow evening|1").arg(n);
        put(pagePath(n, Page::Left), page);
        put(pagePath(n, Page::Right), page);
    }
    putArchive(records);
    put(emptyPagePath(), page);
    put(categoriesPath(), fileOf("generi", linesOf(QStringList(33, "Name").join('|'))));
}

static void run(const QString &program, const QStringList &arguments)
{
    mustBe(QProcess::execute(program, arguments) == 0, "a baseline does not run");
}

// A drawing of some 7 KB, as a page that is nearly empty.
static QByteArray smallPage()
{
    QImage image(600, 800, QImage::Format_Grayscale8);
    image.fill(Qt::white);
    for (int i = 0; i < 300; i += 1)
        image.setPixel(i, i, 0);
    QBuffer bytes;
    mustBe(image.save(&bytes, "JPEG"), "no page can be made");
    return bytes.data();
}

static void benchManyFiles()
{
    const TestFolder folder;
    putPages(9999, smallPage());
    compare(
        {.task = "check 9,999 songs with 20,000 pages", .baseline = "read 4 KB of each page", .limit = 2},
        [] { mustBe(checkWholeArchive().findings.size() == 0, "the archive is not whole"); },
        [] {
            for (int n = 1; n <= 9999; n += 1) {
                for (const Page side : {Page::Left, Page::Right}) {
                    QFile file(pagePath(n, side));
                    mustBe(file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)
                               && !file.read(4096).isEmpty(),
                           "a page cannot be read");
                }
            }
        });
    QDir().mkdir("stand");
    mustBe(copyToStand("stand").result.ok(), "the archive cannot be carried over");
    compare(
        {.task = "copy 20,000 files to a stand that has them",
         .baseline = "rsync -a of the same folders",
         .limit = 1.5},
        [] { mustBe(copyToStand("stand").copied == 0, "something was copied"); },
        [] {
            run("rsync", {"-a", "spartiti/", "stand/spartiti/"});
        });
}

static void emptyStand()
{
    QDir("stand").removeRecursively();
    QDir().mkdir("stand");
    run("sync", {"-f", "."});
}

static void readBack()
{
    for (const QString &name : QDir("spartiti").entryList(QDir::Files)) {
        QFile own("spartiti/" + name), copy("stand/spartiti/" + name);
        mustBe(own.open(QIODevice::ReadOnly) && copy.open(QIODevice::ReadOnly), "a copy cannot be read");
        forgetCached(copy.handle());
        mustBe(own.readAll() == copy.readAll(), "a copy is not the same");
    }
}

static void benchCopying()
{
    const TestFolder folder;
    QByteArray page(1 << 20, Qt::Uninitialized);
    QRandomGenerator(1).fillRange(reinterpret_cast<quint32 *>(page.data()), page.size() / 4);
    putPages(500, page);
    compare(
        {.task = "copy 1 GB to an empty stand, read back and compared",
         .baseline = "cp -r, one sync, reading back and comparing",
         .limit = 1.3,
         .rounds = 3,
         .prepare = emptyStand},
        [] { mustBe(copyToStand("stand").result.ok(), "the archive cannot be carried over"); },
        [] {
            run("sh", {"-c", "cp -r spartiti stand/ && sync -f stand"});
            readBack();
        });
}

int main()
{
    benchManyFiles();
    benchCopying();
    return 0;
}

#include "archive/archive_file.h"
#include "merge/absorb.h"
#include "support/ratio.h"
#include "support/test_folder.h"

#include <QDir>
#include <QProcess>
#include <QRandomGenerator>

#include <cstdio>
#include <sys/resource.h>

static QStringList records(int count)
{
    QStringList records;
    for (int i = 1; i <= count; i += 1)
        records +=
            QStringLiteral("Title number %1|An author of songs|ballad slow evening|%2").arg(i).arg(i % 33);
    return records;
}

static void benchReading()
{
    const TestFolder folder;
    put("source/spartiti/archivio.js", archiveOf(records(10000)));
    putArchive(records(9999));
    MergeSource source;
    const auto startEmpty = [&] {
        source = {};
        Module1 = {};
    };
    compare(
        {.task = "read a source of 10,000 records",
         .baseline = "loadArchive of 9,999",
         .limit = 1.5,
         .prepare = startEmpty},
        [&] { source = readMergeSource("source"); }, [] { (void)loadArchive(); });
}

static void putSource(int songs)
{
    QByteArray page(1 << 20, Qt::Uninitialized);
    for (int i = 1; i <= songs; i += 1) {
        for (const Page side : {Page::Left, Page::Right}) {
            QRandomGenerator(static_cast<quint32>(2 * i))
                .fillRange(reinterpret_cast<quint32 *>(page.data()), page.size() / 4);
            put(pagePath(i, side, "source"), page);
        }
    }
    put("source/spartiti/archivio.js", archiveOf(records(songs)));
}

static void emptyFolders()
{
    QDir("spartiti").removeRecursively();
    QDir("copied").removeRecursively();
    QDir().mkdir("copied");
    QProcess::execute("sync", {"-f", "."});
}

static void copyWithCp()
{
    QProcess::execute("sh", {"-c", "cp source/spartiti/*.jpg copied/ && sync -f copied"});
}

static long mostMemory()
{
    rusage used{};
    getrusage(RUSAGE_SELF, &used);
    return used.ru_maxrss;
}

static void benchAbsorbing()
{
    static constexpr int songs = 500;
    const TestFolder folder;
    putSource(songs);
    const MergeSource source = readMergeSource("source");
    QList<int> chosen;
    for (int slot = 1; slot <= songs; slot += 1)
        chosen += slot;
    emptyFolders();
    const long before = mostMemory();
    compare(
        {.task = "absorb 500 songs, 1,000 pages of 1 MB",
         .baseline = "cp of the pages, one sync",
         .limit = 1.3,
         .rounds = 7,
         .prepare = emptyFolders},
        [&] {
            const AbsorbReport report = absorb(source, chosen);
            if (!report.result.ok() || !report.notMade.isEmpty())
                qFatal("the songs were not absorbed");
        },
        copyWithCp);
    std::printf("| memory added by absorbing (kB) | %ld | | | | 4096 |\n", mostMemory() - before);
}

int main()
{
    benchAbsorbing(); // first, so that no earlier peak hides how much memory it takes
    benchReading();
    return 0;
}

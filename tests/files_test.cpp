#include "files/data_folder.h"
#include "files/replacement.h"
#include "files/safe_write.h"
#include "support/test_folder.h"

using Kind = Result::Kind;
using Way = Result (*)(const QString &source, const QString &target);

static constexpr qint64 plenty = 1'000'000'000;
static const QByteArray bytes = QByteArray(200'000, 'n') + QByteArray("\0\r\n\x1A", 4);
static const auto rights = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser;
static const QString odd = "à l'ami (1).jpg";

struct Attempt {
    Way way = nullptr;
    QString source;
    QString target;
    Kind kind = Kind::Fine;
    QString changed = {}; // the path that holds then what was to get there; none: nothing has changed
    qint64 room = plenty;
};

static void putAll()
{
    put("old", "old");
    QVERIFY(QFile::setPermissions("old", rights));
    put("real/old", "linked to");
    put(odd, bytes);
    putLink("real/old", "link");
    putLink("link", "link of a link");
    putLink("real/new", "link to nothing");
    putLink(odd, "link to the scan");
    putLink("folder", "link to folder");
    QVERIFY(putPipe("pipe") && QDir().mkdir("folder"));
}

static Result replacing(const QString &, const QString &target)
{
    const QByteArrayView all = bytes;
    return replaceFile(target, {all.first(7), all.sliced(7, 0), all.sliced(7)});
}

static void add(const char *name, const Attempt &attempt)
{
    QTest::addRow("%s %s to %s, %lld bytes", name, qUtf8Printable(attempt.source),
                  qUtf8Printable(attempt.target), static_cast<long long>(attempt.room))
        << attempt;
}

static void addReplacing()
{
    add("replace", {replacing, "bytes", "./old", Kind::Fine, "old"});
    add("replace", {replacing, "bytes", "a/b/c", Kind::Fine, "a/b/c"}); // in no folder yet
    add("replace", {replacing, "bytes", "link of a link", Kind::Fine, "real/old"});
    add("replace", {replacing, "bytes", "link to nothing", Kind::Fine, "real/new"});
    for (const char *target : {"folder", "link to folder", "old/a"})
        add("replace", {replacing, "bytes", target, Kind::Unwritable});
    for (const int room : {0, 100'000, 200'003})
        add("replace", {replacing, "bytes", "link", Kind::Unwritable, {}, room});
}

static void addCopying()
{
    for (const char *target :
         {"old", "a/b", "link", "link to nothing", "link to folder", "pipe"}) // a link is replaced itself
        add("copy", {copyFile, odd, target, Kind::Fine, target});
    add("copy", {copyFile, "link to the scan", "b", Kind::Fine, "b"});
    add("copy", {copyFile, "old", "./old", Kind::Fine});
    add("copy", {copyFile, odd, "link to the scan", Kind::Fine});
    for (const char *source : {"gone", "", "link to nothing", "old/a"})
        add("copy", {copyFile, source, "old", Kind::Missing});
    for (const char *source : {"folder", "pipe", "/dev/zero"})
        add("copy", {copyFile, source, "old", Kind::Unreadable});
    add("copy", {copyFile, odd, "folder", Kind::Unwritable});
    add("copy", {copyFile, odd, "link", Kind::Unwritable, {}, 150'000});
}

static void addMoving()
{
    for (const char *target : {"b", "new/b"})
        add("move", {moveFile, "old", target, Kind::Fine, target});
    add("move", {moveFile, "link to nothing", "real/old link", Kind::Fine, "real/old link"});
    for (const char *source : {"gone", "old/a"})
        add("move", {moveFile, source, "b", Kind::Missing});
    for (const char *target : {"real/old", "old", "folder", "link", "link to nothing", "real/old/b"})
        add("move", {moveFile, "old", target, Kind::Unwritable});
}

class FilesTest : public FolderTest
{
    Q_OBJECT
private slots:
    void cleanup() { setReplacementKeeper({}); }

    void everyWay_leavesTheOldOrTheNew_data()
    {
        QTest::addColumn<Attempt>("row");
        addReplacing();
        addCopying();
        addMoving();
    }
    void everyWay_leavesTheOldOrTheNew()
    {
        QFETCH(const Attempt, row);
        putAll();
        const auto allowed = QFile::permissions("old");
        auto expected = bytesBelow(".");
        if (!row.changed.isEmpty())
            expected[row.changed] = row.way == moveFile ? expected.take(row.source) : bytes;
        const FullDisk disk(row.room);
        const Result result = row.way(row.source, row.target);
        QCOMPARE(result.kind, row.kind);
        QVERIFY2(row.room == plenty || result.reason == FullDisk::reason(), qPrintable(result.reason));
        QCOMPARE(bytesBelow(".").keys(), expected.keys());
        QVERIFY(bytesBelow(".") == expected);
        QVERIFY(!QFile::exists("old") || QFile::permissions("old") == allowed);
    }

    void ofALink_theFolderOfTheFileIsForced()
    {
        putAll();
        const QFileInfo folder(Replacement("link of a link", Replacement::Link::Followed).folder());
        QCOMPARE(folder, QFileInfo("real"));
    }

    void nothingThatIsNoFile_isRead()
    {
        putAll();
        QByteArray read = "as before";
        for (const char *path : {"pipe", "folder", "/dev/zero"}) {
            QCOMPARE(readWhole(path, read).kind, Kind::Unreadable);
            QVERIFY(!holdsJust(path, {}));
        }
        QCOMPARE(read, "as before");
        QVERIFY(holdsJust(odd, bytes) && !holdsJust(odd, QByteArray(bytes).replace(199'999, 1, "x")));
    }

    void copyingManyFiles_needsFewOpenAtOnce()
    {
        QList<FileCopy> copies;
        for (int i = 0; i < 450; i += 1) {
            copies += {QStringLiteral("from/%1").arg(i), QStringLiteral("to/%1").arg(i)};
            if (i != 120)
                put(copies[i].source, QByteArray::number(i));
        }
        qsizetype most = 0; // of those that lie beside their places, which are open
        const QList<Result> results = copyFiles(copies, [&](int, int) {
            most = qMax(most, namesIn("to").filter(".").size());
            return true;
        });
        QVERIFY(most < 160);
        for (int i = 0; i < 450; i += 1) {
            QCOMPARE(results[i].kind, i == 120 ? Kind::Missing : Kind::Fine);
            QCOMPARE(contents(copies[i].target), contents(copies[i].source));
        }
    }

    void keeper_seesWhatIsReplacedAndWhetherItWas()
    {
        putAll();
        QStringList seen;
        const auto before = [&](const QString &path) { seen += path + " held " + contents(path); };
        setReplacementKeeper({before, [&](const QString &path, bool was) {
                                  seen += path + (was ? " holds " : " kept ") + contents(path);
                              }});
        put("a", "a");
        put("b", "b");
        QVERIFY(replaceFile("old", "new").ok() && replaceFile("link", "new").ok());
        QVERIFY(copyFiles({{"a", "old"}, {"b", "link"}, {"b", "none before"}, {"a", "a"}}).last().ok());
        QVERIFY(!replaceFile("folder", "new").ok() && moveFile("a", "c").ok());
        QVERIFY(!putInPlace("b", "folder", "folder"));
        QCOMPARE(seen.join("; "),
                 "old held old; old holds new; link held linked to; link holds new; old held new; old holds "
                 "a; link held new; link holds b; none before held (missing); none before holds b; folder "
                 "held (missing); folder kept (missing)");
    }

    void keeper_thatFailsStopsNothing()
    {
        const auto takePlace = [](const QString &path) {
            QDir().mkdir(path);
            throw 1;
        };
        setReplacementKeeper({takePlace, [](const QString &, bool) { throw errno = ENOENT; }});
        put("old", "old");
        QVERIFY(replaceFile("old", "new").ok());
        QCOMPARE(contents("old"), "new");
        QCOMPARE(replaceFile("none", "bytes").reason, "Is a directory");
        QCOMPARE(namesIn("."), QStringList({"none", "old"}));
    }
};

QTEST_GUILESS_MAIN(FilesTest)
#include "files_test.moc"

#include "files/data_folder.h"
#include "files/replacement.h"
#include "files/safe_write.h"
#include "support/test_folder.h"

#include <QDir>
#include <QFile>
#include <QMap>
#include <QTest>

#include <sys/stat.h>

using Kind = Result::Kind;
using Way = std::function<Result()>;
using State = QMap<QString, QByteArray>; // by path; of a link, where it points to

static constexpr rlim_t plenty = 1'000'000'000;
static const QByteArray bytes = QByteArray(200'000, 'n') + QByteArray("\0\r\n\x1A", 4);
static const QString odd = "à l'ami \"1\".jpg";

static void putAll()
{
    put("old", "old");
    put("real/old", "linked to");
    put(odd, bytes);
    QVERIFY(QFile::link("real/old", "link") && QFile::link("link", "link of a link"));
    QVERIFY(QFile::link("real/new", "link to nothing") && QFile::link(odd, "link to the scan"));
    QVERIFY(mkfifo("pipe", 0600) == 0 && QDir().mkdir("folder"));
}

static State stateOf(const QString &folder = {})
{
    State state;
    for (const QString &name : namesIn(folder.isEmpty() ? "." : folder)) {
        const QString path = folder + name;
        const QFileInfo entry(path);
        if (entry.isSymLink())
            state[path] = "-> " + QDir().relativeFilePath(entry.symLinkTarget()).toUtf8();
        else if (entry.isDir())
            state.insert(stateOf(path + '/'));
        else
            state[path] = entry.isFile() ? contents(path) : QByteArray("no file");
    }
    return state;
}

static Way replacing(const QString &path)
{
    const QByteArrayView all = bytes;
    return [=] { return replaceFile(path, {all.first(7), all.sliced(7, 0), all.sliced(7)}); };
}

static Way copying(const QString &source, const QString &target)
{
    return [=] { return copyFile(source, target); };
}

static Way copyingMany(const QString &source, const QString &target)
{
    return [=] { return copyFiles({{odd, "first"}, {"gone", "second"}, {source, target}}).last(); };
}

static Way moving(const QString &source, const QString &target)
{
    return [=] { return moveFile(source, target); };
}

static void good(const QString &name, const Way &way, const State &changes)
{
    QTest::addRow("%s", qPrintable(name)) << way << Kind::Fine << changes << plenty;
}

static void bad(const QString &name, const Way &way, Kind kind, const State &changes = {},
                rlim_t room = plenty)
{
    QTest::addRow("%s", qPrintable(name)) << way << kind << changes << room;
}

static void addReplacing()
{
    good("replace", replacing("./old"), {{"old", bytes}});
    good("replace: in no folder yet", replacing("a/b/c"), {{"a/b/c", bytes}});
    good("replace: a link is followed", replacing("link"), {{"real/old", bytes}});
    good("replace: a link of a link", replacing("link of a link"), {{"real/old", bytes}});
    good("replace: a link to nothing", replacing("link to nothing"), {{"real/new", bytes}});
    bad("replace: a folder", replacing("folder"), Kind::Unwritable);
    bad("replace: below a file", replacing("old/a"), Kind::Unwritable);
    bad("replace: no room", replacing("link"), Kind::Unwritable, {}, 0);
    bad("replace: too little room", replacing("old"), Kind::Unwritable, {}, 100'000);
    bad("replace: a byte too little", replacing("old"), Kind::Unwritable, {}, 200'003);
}

// `also` is what each of these ways changes beside its target.
static void addCopying(const QString &name, Way (*copy)(const QString &, const QString &), const State &also)
{
    const auto goodCopy = [&](const char *what, const QString &source, const QString &target, State changes) {
        changes.insert(also);
        good(name + what, copy(source, target), changes);
    };
    const auto badCopy = [&](const char *what, const QString &source, const QString &target, Kind kind) {
        bad(name + what, copy(source, target), kind, also);
    };
    goodCopy("a file", odd, "old", {{"old", bytes}});
    goodCopy("from a link", "link to the scan", "a/b", {{"a/b", bytes}});
    goodCopy("a link is replaced itself", odd, "link", {{"link", bytes}});
    goodCopy("onto a link to nothing", odd, "link to nothing", {{"link to nothing", bytes}});
    goodCopy("onto itself", "old", "./old", {});
    goodCopy("onto a link to itself", odd, "link to the scan", {});
    goodCopy("onto a pipe", odd, "pipe", {{"pipe", bytes}});
    badCopy("nothing", "gone", "old", Kind::Missing);
    badCopy("no name", "", "old", Kind::Missing);
    badCopy("from a link to nothing", "link to nothing", "old", Kind::Missing);
    badCopy("a folder", "folder", "old", Kind::Unreadable);
    badCopy("a pipe", "pipe", "old", Kind::Unreadable);
    badCopy("a device", "/dev/zero", "old", Kind::Unreadable);
    badCopy("onto a folder", odd, "folder", Kind::Unwritable);
    bad(name + "too little room", copy(odd, "link"), Kind::Unwritable, {}, 150'000);
}

static void addMoving()
{
    good("move", moving("old", "b"), {{"old", {}}, {"b", "old"}});
    good("move: to a new folder", moving("old", "new/b"), {{"old", {}}, {"new/b", "old"}});
    good("move: a link itself", moving("link to nothing", "real/old link"),
         {{"link to nothing", {}}, {"real/old link", "-> real/real/new"}});
    bad("move: what is not there", moving("gone", "b"), Kind::Missing);
    for (const QString target : {"real/old", "old", "folder", "link", "link to nothing", "real/old/b"})
        bad("move: over or below " + target, moving("old", target), Kind::Unwritable);
}

class FilesTest : public QObject
{
    Q_OBJECT
private slots:
    void cleanup() { setReplacementKeeper({}); }

    void everyWay_leavesTheOldOrTheNew_data()
    {
        QTest::addColumn<Way>("way");
        QTest::addColumn<Kind>("kind");
        QTest::addColumn<State>("changes"); // a null value: no longer there
        QTest::addColumn<rlim_t>("room");
        addReplacing();
        addCopying("copy: ", copying, {});
        addCopying("copy many: ", copyingMany, {{"first", bytes}});
        addMoving();
    }

    void everyWay_leavesTheOldOrTheNew()
    {
        QFETCH(Way, way);
        QFETCH(Kind, kind);
        QFETCH(State, changes);
        QFETCH(rlim_t, room);
        const TestFolder folder;
        putAll();
        State expected = stateOf();
        for (auto change = changes.cbegin(); change != changes.cend(); ++change) {
            if (change.value().isNull())
                expected.remove(change.key());
            else
                expected[change.key()] = change.value();
        }
        const FullDisk disk(room);
        const Result result = way();
        QCOMPARE(result.kind, kind);
        QVERIFY2(room == plenty || result.reason == "File too large", qPrintable(result.reason));
        QCOMPARE(stateOf().keys(), expected.keys());
        QVERIFY(stateOf() == expected);
    }

    void aFileThatIsReplaced_keepsItsRights()
    {
        const TestFolder folder;
        put("old", "old");
        const auto rights = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser;
        QVERIFY(QFile::setPermissions("old", rights));
        QVERIFY(replaceFile("old", "new").ok());
        QCOMPARE(QFile::permissions("old"), rights);
    }

    void nothingThatIsNoFile_isRead()
    {
        const TestFolder folder;
        putAll();
        QByteArray read = "as before";
        for (const char *path : {"pipe", "folder", "/dev/zero"}) {
            QCOMPARE(readWhole(path, read).kind, Kind::Unreadable);
            QVERIFY(!holdsJust(path, {}));
        }
        QCOMPARE(read, "as before");
        QVERIFY(holdsJust(odd, bytes) && !holdsJust(odd, QByteArray(bytes).replace(199'999, 1, "x")));
    }

    void keeper_seesWhatIsReplacedAndWhetherItWas()
    {
        const TestFolder folder;
        putAll();
        QStringList seen;
        setReplacementKeeper({
            [&](const QString &path) { seen += path + " held " + contents(path); },
            [&](const QString &path, bool was) {
                seen += path + (was ? " holds " : " kept ") + contents(path);
            },
        });
        put("a", "a");
        put("b", "b");
        QVERIFY(replaceFile("old", "new").ok() && replaceFile("link", "new").ok());
        QVERIFY(copyFiles({{"a", "old"}, {"b", "link"}, {"b", "none before"}, {"a", "a"}}).last().ok());
        QVERIFY(!replaceFile("folder", "new").ok() && moveFile("a", "c").ok());
        QVERIFY(!putInPlace("b", "folder", "folder"));
        const QStringList expected = {
            "old held old",        "old holds new",         "link held linked to",
            "link holds new",      "old held new",          "old holds a",
            "link held new",       "link holds b",          "none before held (missing)",
            "none before holds b", "folder held (missing)", "folder kept (missing)"};
        QCOMPARE(seen, expected);
    }

    void keeper_thatFailsStopsNothing()
    {
        const TestFolder folder;
        put("old", "old");
        setReplacementKeeper({[](const QString &) { throw 1; }, [](const QString &, bool) { throw 1; }});
        QVERIFY(replaceFile("old", "new").ok());
        QCOMPARE(contents("old"), "new");
    }
};

QTEST_APPLESS_MAIN(FilesTest)
#include "files_test.moc"

// What keeping earlier versions and what is typed costs: a save, a keystroke, and the writing itself.
#include "archive/archive_operations.h"
#include "controls/text_box.h"
#include "files/data_folder.h"
#include "files/replacement.h"
#include "files/safe_write.h"
#include "history/history.h"
#include "history/recovery.h"
#include "main/rooms.h"
#include "songs/edits.h"
#include "support/ratio.h"
#include "support/test_folder.h"
#include "support/windows.h"

#include <QApplication>
#include <QDir>
#include <QFile>

static void mustBe(bool isSo, const char *what)
{
    if (!isSo)
        qFatal("%s", what);
}

// A year's versions lie there already, as many as the rule leaves.
static void putOldVersions(const QString &folder)
{
    const QByteArray archive = contents(archivePath());
    for (int day = 0; day < 45; day += 1) {
        const Version version{QDateTime::currentDateTimeUtc().addDays(-day), "archivio.js", 0};
        put(folder + '/' + version.name(), archive);
    }
    for (int page = 1; page <= 1000; page += 1) {
        const Version version{QDateTime::currentDateTimeUtc().addSecs(-page),
                              QStringLiteral("%1L.jpg").arg(page), 0};
        put(folder + '/' + version.name(), "a page");
    }
}

static void compareSaving()
{
    std::unique_ptr<Versions> versions;
    const auto save = [] { mustBe(saveArchive().written.ok(), "cannot save"); };
    // A limit of 20 archives, so that the oldest go as they do where a limit is reached.
    versions = std::make_unique<Versions>("kept/versions", QDateTime::currentDateTimeUtc,
                                          VersionLimits{20'000'000, 1'000'000'000});
    const auto keeping = [&] {
        return ReplacementKeeper{
            [&](const QString &path) { versions->keep(path); },
            [&](const QString &path, bool wasReplaced) { versions->settle(path, wasReplaced); }};
    };
    putOldVersions("kept/versions");
    setReplacementKeeper(keeping());
    save(); // the versions that lie there are read once an hour
    compare(
        {"save 9,999 records, with a version kept", "the same without", 1.1, 101},
        [&] {
            setReplacementKeeper(keeping());
            save();
        },
        [&] {
            setReplacementKeeper({});
            save();
        });
    setReplacementKeeper({});
}

static void compareRecovery()
{
    Edits edits;
    edits.loaded();
    edits.set(Field::Title, {5000}, {"A title of usual length that was changed"});
    const QByteArray bytes = bytesOf(unsavedNow(edits));
    Recovery recovery("kept", [&edits] { return unsavedNow(edits); });
    recovery.begin();
    compare(
        {"keep one changed song among 9,999", "write the same bytes in the same safe order", 1.5, 101},
        [&] {
            recovery.note();
            mustBe(recovery.write(), "cannot keep what was typed");
        },
        [&] { mustBe(replaceFile("kept/other.json", bytes).ok(), "cannot write"); });
}

// Of the main window that has not this one.
static TextBox *authorBox(const TextBox *other = nullptr)
{
    for (const QWidget *window : QApplication::topLevelWidgets()) {
        auto *box = window->objectName() == "Form1" ? window->findChild<TextBox *>("Text3") : nullptr;
        if (box && box != other)
            return box;
    }
    qFatal("no main window");
}

static void compareTyping()
{
    Rooms with;
    Rooms without;
    with.form1.show();
    TextBox *const kept = authorBox();
    without.form1.show();
    TextBox *const notKept = authorBox(kept);
    const auto typeInto = [](TextBox *box) {
        for (int key = 0; key < 40; key += 1)
            QTest::keyClick(box, static_cast<char>('a' + key % 26));
    };
    with.beginHistory();
    const auto begin = [&] {
        kept->setText("B");
        notKept->setText("B");
    };
    compare(
        {"40 keys into a box of the main window, with what is typed kept", "the same without", 1.05, 501,
         Clock::Processor, begin},
        [&] { typeInto(kept); }, [&] { typeInto(notKept); });
}

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    TestFolder folder;
    qputenv("XDG_DATA_HOME", QFile::encodeName(QDir::current().filePath("share")));
    QDir().mkdir("kept");
    putArchive(QStringList(9999, "A title of usual length|Some author|two tags|3"));
    mustBe(loadArchive().result.ok(), "cannot load");
    compareSaving();
    compareRecovery();
    compareTyping();
    return 0;
}

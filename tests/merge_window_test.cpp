#include "controls/image_frame.h"
#include "files/data_folder.h"
#include "support/windows.h"
#include "window/progress.h"

#include <QClipboard>
#include <QListWidget>
#include <QPlainTextEdit>

static void putPage(int record, Qt::GlobalColor colour)
{
    putPicture(pagePath(record, Page::Left, "other"), colour);
}

// The program over an archive of two songs, beside an installation of three in the folder "other".
struct Stand : Program {
    explicit Stand(const QList<Answer> &ahead = {})
        : Program(archiveOf({"One|A|tag|3", "Two|||"}), ahead)
    {
        put("other/index.html", "");
        put("other/spartiti/archivio.js", archiveOf({"Zebra|||1", "Apple|||2", "Apple|||3"}));
        putPage(1, Qt::red);
        putPage(2, Qt::green);
    }
};

// The categories there, how many songs are ticked, the answers, and the categories that the songs have then.
using Translating = std::tuple<QStringList, int, QList<Answer>, QString>;

static void openSource(const QString &name = "other")
{
    chooseMenu("Merging");
    openFolder("Preparation", name);
    clickRow("Preparation", "Start pages", 0);
    click("Preparation", "Ok");
}

static QColor preview()
{
    const QPixmap &picture = control<ImageFrame>("Merging", "Left page")->picture();
    return picture.isNull() ? QColor() : picture.toImage().pixelColor(5, 5);
}

static void clickTick(int row)
{
    clickRow("Merging", "Scores to absorb", row, {}, 10);
}

static QListWidgetItem *line(int row)
{
    return control<QListWidget>("Merging", "Scores to absorb")->item(row);
}

static QStringList listed()
{
    return shownRows("Merging", "Scores to absorb");
}

class MergeWindowTest : public WindowTest
{
    Q_OBJECT
private slots:
    void premerge_isArmedByAnyFileAndStaysWhenADriveHasGone()
    {
        const Stand stand;
        const QByteArray home = qgetenv("HOME");
        qputenv("HOME", QFile::encodeName(QDir::currentPath() + "/gone"));
        chooseMenu("Merging");
        qputenv("HOME", home);
        openFolder("Preparation", "other");
        QVERIFY(!control("Preparation", "Ok")->isEnabled());
        clickFile("Preparation", "index.html");
        press("Preparation", "Drive", Qt::Key_Down);
        QVERIFY(stand.told.join("").contains("/gone cannot be read."));
        QVERIFY(control("Preparation", "Ok")->isEnabled());
        click("Preparation", "Ok");
        QCOMPARE(Module1.mergeSourcePath, QDir::currentPath() + "/other");
    }

    void list_ticksAndShowsPagesByPlace()
    {
        const Stand stand;
        openSource();
        control("Merging", "Scores to absorb")->setFocus();
        QVERIFY(!preview().isValid());
        press("Merging", "Scores to absorb", Qt::Key_Down);
        QVERIFY(preview().red() > 200);
        clickRow("Merging", "Scores to absorb", 2);
        QVERIFY(!preview().isValid());
        clickTick(1);
        QVERIFY(preview().green() > 200);
        press("Merging", "Scores to absorb", Qt::Key_Home);
        press("Merging", "Scores to absorb", Qt::Key_Space);
        QCOMPARE(listed(), QStringList({"+Zebra", "+Apple", "Apple"}));
        putPage(1, Qt::blue);
        clickTick(0); // a click on the line in front shows its page anew
        QVERIFY(preview().blue() > 200);
        QCOMPARE(listed(), QStringList({"Zebra", "+Apple", "Apple"}));
    }

    void aSourceThatIsNotWhole_isToldOf()
    {
        const Stand stand;
        openSource();
        put("bare/index.html", "");
        openSource("bare"); // while the other list is open
        QVERIFY(stand.told.join("").endsWith("bare/spartiti/archivio.js: there is no such file"));
        QCOMPARE(listed(), QStringList());
        put("bare/spartiti/archivio.js", archiveOf({" ONE|||1", "|||2", "Two|||3"}).chopped(5));
        openSource("bare");
        QVERIFY(stand.told.join("").endsWith("is missing or is not as it should be. 2 titles were read."));
        QCOMPARE(listed(), QStringList({" ONE", ""}));
        QVERIFY(line(0)->font().italic()); // it is in the archive here
    }

    void absorb_addsTheTickedSongsAndReopensTheMainWindowOnTheLast()
    {
        Stand stand;
        type("Form1", "Author", "unsaved");
        openSource();
        clickTick(2);
        clickTick(0);
        QCOMPARE(stand.boxesOf("Merging", "Absorb", {Answer::No}),
                 "The selected tracks will be added to your archive. You want to proceed?");
        stand.boxesOf("Merging", "Absorb", {Answer::Yes});
        QVERIFY(stand.told.value(1).startsWith("The merger of the archives has been completed."));
        QCOMPARE(contents("spartiti/archivio.js"),
                 archiveOf({"One|A|tag|3", "Two|unsaved||0", "Zebra|||1", "Apple|||3"}));
        QCOMPARE(textOf("Form1", "Label6") + textOf("Form1", "Text1"), "There are 4 titles4");
        QCOMPARE(listed(), QStringList({"+Zebra", "Apple", "+Apple"}));
        QVERIFY(line(2)->toolTip().endsWith("also in your archive: no. 4"));
    }

    void whatAnotherProgramChangesMeanwhile_isNotLostUnasked()
    {
        Stand stand({Answer::Yes, enterKey, Answer::Yes, Answer::Yes});
        openSource();
        clickTick(0);
        clickTick(1);
        const QByteArray others = archiveOf({"One|A|tag|3", "Two|||", "by another|||"});
        stand.meanwhile = [&] { put("spartiti/archivio.js", others); };
        click("Merging", "Absorb");
        QVERIFY(stand.told.value(1).contains("pages that lie under the next numbers, from 3 on, would give"));
        QCOMPARE(contents("spartiti/archivio.js"), others);
        click("Merging", "Absorb");
        QCOMPARE(contents("spartiti/archivio.js"),
                 archiveOf({"One|A|tag|3", "Two|||0", "Zebra|||1", "Apple|||2"}));
        stand.meanwhile = [] { put("other/spartiti/archivio.js", archiveOf({"Quite another|||1"})); };
        QVERIFY(stand.boxesOf("Merging", "Absorb", {Answer::Yes, Answer::Ok})
                    .endsWith("other/spartiti/archivio.js has changed since it was listed."));
        QCOMPARE(listed(), QStringList("Quite another"));
    }

    void categories_areTranslatedByNameWhereAPersonWantsIt_data()
    {
        const QList<Answer> only{Answer::Yes}, yes{Answer::Yes, Answer::Yes}, no{Answer::Yes, Answer::No};
        tableOf<Translating>({{"yes", {{"Tango", "Valse", "Blues"}, 3, yes, "031"}},
                              {"no", {{"Tango", "Valse", "Blues"}, 3, no, "123"}},
                              {"the ticked one agrees", {{"blues ", "Tango", "Jazz"}, 1, only, "1"}},
                              {"one has no name", {{"Jazz", "Tango", ""}, 3, yes, "403"}},
                              {"theirs is missing", {{}, 3, only, "123"}}});
    }
    void categories_areTranslatedByNameWhereAPersonWantsIt()
    {
        const auto [names, ticked, given, categories] = tableRow<Translating>();
        Stand stand;
        putCategories({"Blues", "Blues", "Valse", "Jazz"});
        if (!names.isEmpty())
            putCategories(names, "other/spartiti/generi.js");
        openSource();
        for (int song = 0; song < ticked; song += 1)
            clickTick(song);
        const QString told = stand.boxesOf("Merging", "Absorb", given);
        QString got;
        for (int i = 0; i < ticked; i += 1)
            got += Module1.recCategory[static_cast<size_t>(3 + i)];
        QCOMPARE(got, categories);
        QCOMPARE(told.contains(" with other numbers here. Translate them by name?"), given.size() > 1);
        QCOMPARE(told.contains(": Tango"), got.contains('0')); // which came without a category
    }

    void report_namesEveryPageInABoxThatFitsTheScreen()
    {
        Stand stand({Answer::Yes, Answer::Ok});
        for (int song = 3; song <= 102; song += 1)
            put(QStringLiteral("spartiti/%1R.jpg").arg(song), "from before");
        put("other/spartiti/archivio.js", fileOf("archivio", linesOf("none|Song||tags|1").repeated(100)));
        openSource();
        for (int row = 0; row < 100; row += 1)
            clickTick(row);
        QSize size;
        stand.meanwhile = [&] {
            stand.meanwhile = [&] {
                size = QApplication::activeModalWidget()->frameSize();
                auto *report = control<QPlainTextEdit>("report", "Report");
                QTest::keySequence(report, QKeySequence::SelectAll);
                QTest::keySequence(report, QKeySequence::Copy);
            };
        };
        click("Merging", "Absorb");
        QCOMPARE(size.boundedTo({1024 - 8, 768 - 40}), size);
        const QString copied = QDir::fromNativeSeparators(QApplication::clipboard()->text());
        for (int song = 3; song <= 102; song += 1)
            QVERIFY(copied.contains(QStringLiteral("\nspartiti/%1R.jpg is now ").arg(song)));
        QVERIFY(copied.contains("\n102 Song"));
    }

    void progress_comesAfterHalfASecondAndCanBeCancelled()
    {
        const Program program;
        auto goOn = progressBox("Absorbing 3 songs");
        QVERIFY(goOn(0, 300) && isWorkRunning());
        QVERIFY(!windowNamed("progress"));
        QTest::qWait(600);
        QVERIFY(goOn(1, 300) && goOn(2, 300));
        QCOMPARE(QApplication::activeModalWidget(), windowNamed("progress"));
        click("progress", "Cancel");
        QVERIFY(!goOn(3, 300));
        goOn = {};
        QVERIFY(!windowNamed("progress") && !isWorkRunning());
    }
};

QTEST_MAIN(MergeWindowTest)
#include "merge_window_test.moc"

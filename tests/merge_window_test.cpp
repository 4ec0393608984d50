#include "controls/image_frame.h"
#include "files/data_folder.h"
#include "support/table.h"
#include "support/windows.h"
#include "window/progress.h"

#include <QClipboard>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QProgressBar>

static void putPicture(int record, Qt::GlobalColor colour)
{
    QImage image(30, 40, QImage::Format_RGB32);
    image.fill(colour);
    QVERIFY(image.save(pagePath(record, Page::Left, "other")));
}

// The program over an archive of two songs, beside an installation of three in the folder "other".
struct Stand : Program {
    explicit Stand(const QList<Answer> &ahead = {})
        : Program(archiveOf({"One|A|tag|3", "Two|||"}), ahead)
    {
        put("other/index.html", "");
        put("other/spartiti/archivio.js", archiveOf({"Zebra|||1", "Apple|||2", "Apple|||3"}));
        putPicture(1, Qt::red);
        putPicture(2, Qt::green);
    }
};

struct Translating {
    QStringList names; // of the categories there
    QList<int> ticked;
    QList<Answer> answers;
    QString categories; // that the songs have then
};
Q_DECLARE_METATYPE(Translating)

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
    clickRow("Merging", "Scores to absorb", row, 10);
}

static QStringList listed()
{
    return shownRows("Merging", "Scores to absorb");
}

static const QString completed = "The merger of the archives has been completed.";
static const QString proceed = "The selected tracks will be added to your archive. You want to proceed?";

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
        clickTick(1);
        QVERIFY(preview().green() > 200);
        clickRow("Merging", "Scores to absorb", 2);
        QVERIFY(!preview().isValid());
        press("Merging", "Scores to absorb", Qt::Key_Home);
        press("Merging", "Scores to absorb", Qt::Key_Space);
        QCOMPARE(listed(), QStringList({"+Zebra", "+Apple", "Apple"}));
        clickTick(0);
        QCOMPARE(listed(), QStringList({"Zebra", "+Apple", "Apple"}));

        put("bare/index.html", "");
        openSource("bare"); // while the other list is open
        QVERIFY(stand.told.join("").endsWith("bare/spartiti/archivio.js: there is no such file"));
        QCOMPARE(listed(), QStringList());
        put("bare/spartiti/archivio.js", archiveOf({"One|||1", "Two|||2"}).chopped(5));
        openSource("bare");
        QVERIFY(stand.told.join("").endsWith("is missing or is not as it should be. 1 titles were read."));
        QCOMPARE(listed(), QStringList("One"));
    }

    void clickOnTheLineInFront_showsItsPageAnew()
    {
        const Stand stand;
        openSource();
        press("Merging", "Scores to absorb", Qt::Key_Down);
        putPicture(1, Qt::blue);
        QVERIFY(preview().red() > 200);
        clickRow("Merging", "Scores to absorb", 0);
        QVERIFY(preview().blue() > 200);
        putPicture(1, Qt::red);
        clickTick(0);
        QVERIFY(preview().red() > 200);
        // Another line shows its page once, as soon as the mouse goes down.
        auto *list = control<QListWidget>("Merging", "Scores to absorb");
        const QPoint place = list->visualItemRect(list->item(1)).center();
        QTest::mousePress(list->viewport(), Qt::LeftButton, {}, place);
        QVERIFY(preview().green() > 200);
        putPicture(2, Qt::red);
        QTest::mouseRelease(list->viewport(), Qt::LeftButton, {}, place);
        QVERIFY(preview().green() > 200);
    }

    void absorb_addsTheTickedSongsAndReopensTheMainWindowOnTheLast()
    {
        const Stand stand({Answer::No, Answer::Yes, Answer::Ok, Answer::Yes, Answer::Ok, Answer::Ok});
        type("Form1", "Author", "unsaved");
        openSource();
        clickTick(2);
        clickTick(0);
        put("spartiti/4L.jpg", "from before");
        click("Merging", "Absorb");
        QCOMPARE(stand.told.value(0), proceed);
        clickWithFullDisk("Merging", "Absorb", 20);
        QVERIFY(stand.told.last().startsWith("Nothing was absorbed; the archive is as it was before.\n"));
        click("Merging", "Absorb");
        QVERIFY(stand.told.value(4).contains("spartiti/4L.jpg is now spartiti/4L (old 1).jpg"));
        QVERIFY(stand.told.value(5).startsWith(completed));
        QCOMPARE(contents("spartiti/archivio.js"),
                 archiveOf({"One|A|tag|3", "Two|unsaved||0", "Zebra|||1", "Apple|||3"}));
        QCOMPARE(contents("spartiti/3L.jpg"), contents("other/spartiti/1L.jpg"));
        QCOMPARE(textOf("Form1", "Label6") + textOf("Form1", "Text1"), "There are 4 titles4");
        QCOMPARE(listed(), QStringList({"+Zebra", "Apple", "+Apple"}));
    }

    void anotherStandInItsPlace_isListedAnewAndNothingIsAbsorbed()
    {
        Stand stand({Answer::Yes, Answer::Ok});
        openSource();
        clickTick(0);
        stand.meanwhile = [] { put("other/spartiti/archivio.js", archiveOf({"Quite another|||1"})); };
        click("Merging", "Absorb");
        QVERIFY(stand.told.value(1).startsWith("Nothing was absorbed;"));
        QVERIFY(stand.told.value(1).endsWith("has changed since it was listed."));
        QCOMPARE(listed(), QStringList("Quite another"));
        QVERIFY(!preview().isValid());
    }

    void ownArchiveChangedByAnother_isReplacedOnlyAfterATrueQuestion()
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
    }

    void titlesInTheArchive_areInItalics()
    {
        const Stand stand({Answer::Yes, Answer::Ok, Answer::Ok});
        put("other/spartiti/archivio.js", archiveOf({" ONE|||1", "Apple|||2", "|||3"}));
        openSource();
        const auto marked = [](int row) {
            const auto *line = control<QListWidget>("Merging", "Scores to absorb")->item(row);
            return line->font().italic() ? line->toolTip().section('\n', -1) : QString();
        };
        QCOMPARE(marked(0) + marked(1) + marked(2), "also in your archive: no. 1");
        clickTick(1);
        click("Merging", "Absorb");
        QCOMPARE(marked(1), "also in your archive: no. 3");
    }

    void categories_areTranslatedByNameWhereAPersonWantsIt_data()
    {
        tableOf<Translating>({
            {"yes", {{"Tango", "Valse", "Blues"}, {0, 1, 2}, {Answer::Yes, Answer::Yes}, "031"}},
            {"no", {{"Tango", "Valse", "Blues"}, {0, 1, 2}, {Answer::Yes, Answer::No}, "123"}},
            {"the ticked ones agree", {{"Tango", "blues ", "Jazz"}, {1}, {Answer::Yes}, "2"}},
            {"one differs", {{"Jazz", "Tango", ""}, {0, 1, 2}, {Answer::Yes, Answer::Yes}, "403"}},
            {"theirs is missing", {{}, {0, 1, 2}, {Answer::Yes}, "123"}},
        });
    }
    void categories_areTranslatedByNameWhereAPersonWantsIt()
    {
        const auto row = tableRow<Translating>();
        Stand stand(row.answers);
        const auto categories = [](QStringList names) {
            names.resize(33);
            QByteArray lines;
            for (const QString &name : std::as_const(names))
                lines += linesOf(name);
            return fileOf("generi", lines);
        };
        put("spartiti/generi.js", categories({"Blues", "Blues", "Valse", "Jazz"}));
        if (!row.names.isEmpty())
            put("other/spartiti/generi.js", categories(row.names));
        openSource();
        for (const int song : row.ticked)
            clickTick(song);
        click("Merging", "Absorb");
        QString got;
        for (int i = 0; i < row.ticked.size(); i += 1)
            got += Module1.recCategory[static_cast<size_t>(3 + i)];
        QCOMPARE(got, row.categories);
        const QString told = stand.told.join('|');
        QCOMPARE(told.contains(" with other numbers here. Translate them by name?"), row.answers.size() > 1);
        QCOMPARE(told.contains("without a category"), got.contains('0'));
    }

    void report_namesEveryPageInABoxThatFitsTheScreen()
    {
        Stand stand({Answer::Yes, Answer::Ok, Answer::Ok});
        QStringList wanted;
        for (int song = 3; song <= 102; song += 1) {
            const QString page = QStringLiteral("spartiti/%1R.jpg").arg(song);
            put(page, "from before");
            wanted += {page + " is now ", QStringLiteral("%1 Song").arg(song)};
        }
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
        QVERIFY(stand.told.last().startsWith(completed));
        QVERIFY(size.width() <= 1024 - 8 && size.height() <= 768 - 40);
        const QString copied = '\n' + QApplication::clipboard()->text();
        for (const QString &line : std::as_const(wanted))
            QCOMPARE(copied.count('\n' + line), 1);
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
        QCOMPARE(control<QProgressBar>("progress", "")->value(), 2);
        click("progress", "Cancel");
        QVERIFY(!goOn(3, 300));
        goOn = {};
        QVERIFY(!windowNamed("progress") && !isWorkRunning());
    }
};

QTEST_MAIN(MergeWindowTest)
#include "merge_window_test.moc"

#include "archive/archive_file.h"
#include "controls/image_frame.h"
#include "controls/scroll_bar.h"
#include "controls/text_box.h"
#include "files/data_folder.h"
#include "main/Form1.h"
#include "support/windows.h"

#include <QApplication>
#include <QDir>
#include <QImage>
#include <QLabel>
#include <QPushButton>
#include <QScreen>

static QString text(const QString &box)
{
    return control<QLineEdit>("Form1", box)->text();
}

static int value()
{
    return control<ScrollBar>("Form1", "VScroll1")->value();
}

static int maximum()
{
    return control<ScrollBar>("Form1", "VScroll1")->maximum();
}

static QString count()
{
    return control<QLabel>("Form1", "Label6")->text();
}

static void type(const QString &box, const QString &what)
{
    QTest::keyClicks(control("Form1", box), what);
}

static bool hasPicture(const QString &frame)
{
    return !control<ImageFrame>("Form1", frame)->picture().isNull();
}

static void show(Form1 &form)
{
    form.show();
    waitUntilActive("Form1");
}

static void putPage(int record, Page page)
{
    QImage image(200, 300, QImage::Format_RGB32);
    image.fill(Qt::green);
    QVERIFY(image.save(pagePath(record, page), "JPG"));
}

class MainWindowTest : public QObject
{
    Q_OBJECT
private slots:
    void start_standsWhereItShould_data()
    {
        QTest::addColumn<QByteArray>("archive"); // "-" for none
        QTest::addColumn<int>("shown");
        QTest::addColumn<int>("reach");
        QTest::addColumn<QString>("record");
        QTest::addColumn<QString>("label");
        QTest::addColumn<QStringList>("boxes");
        const QString begin = "There are no titles in the archive of this folder:";
        const QString damaged = "spartiti/archivio.js is damaged and was not read. It is left as it is.";
        QTest::newRow("two") << archiveOf({"A|||1", "B|||2"}) << 2 << 3 << "2"
                             << "There are 2 titles" << QStringList();
        QTest::newRow("one") << archiveOf({"A|||1"}) << 1 << 2 << "1"
                             << "There are 1 titles" << QStringList();
        QTest::newRow("full") << archiveOf(QStringList(9999, "T|||1")) << 9999 << 9999 << "9999"
                              << "There are 9999 titles" << QStringList();
        QTest::newRow("none in it") << archiveOf({}) << 1 << 1 << "1"
                                    << "There are 0 titles" << QStringList(begin);
        QTest::newRow("no archive") << QByteArray("-") << 1 << 9999 << ""
                                    << "" << QStringList(begin);
        QTest::newRow("damaged") << QByteArray() << 1 << 9999 << ""
                                 << "" << QStringList(damaged);
    }

    void start_standsWhereItShould()
    {
        QFETCH(QByteArray, archive);
        TestFolder folder;
        if (archive != "-")
            put("spartiti/archivio.js", archive);
        QFETCH(QStringList, boxes);
        BoxAnswers answers({boxes.value(0).endsWith("is.") ? QMessageBox::Ok : QMessageBox::No});
        Form1 form;
        show(form);
        QTEST(value(), "shown");
        QTEST(maximum(), "reach");
        QTEST(text("Text1"), "record");
        QTEST(count(), "label");
        QCOMPARE(answers.texts.value(0).section('\n', 0, 0), boxes.value(0));
        QCOMPARE(answers.texts.size(), boxes.size());
        QCOMPARE(Module1.pageRecord, text("Text1").toInt());
        QCOMPARE(contents("spartiti/archivio.js"), archive == "-" ? QByteArray("(missing)") : archive);
    }

    void start_beginsNothingOverAnUnreachableArchive()
    {
        TestFolder folder;
        QVERIFY(QDir().mkdir("spartiti") && QFile::link("archivio.js", "spartiti/archivio.js"));
        BoxAnswers answers({QMessageBox::Ok});
        Form1 form;
        show(form);
        QCOMPARE(answers.texts,
                 QStringList("spartiti/archivio.js cannot be read (Too many levels of symbolic "
                             "links). It is left as it is."));
    }

    void start_beginsAnArchive()
    {
        TestFolder folder;
        BoxAnswers answers({QMessageBox::Yes, QMessageBox::Ok});
        Form1 form;
        show(form);
        QCOMPARE(contents("spartiti/archivio.js"), archiveOf({"|||0"}));
        type("Text2", "First");
        click("Form1", "Command1");
        QCOMPARE(contents("spartiti/archivio.js"), archiveOf({"First|||0"}));
        QCOMPARE(answers.texts.value(1), "Successfully saved!");
        QCOMPARE(answers.titles, (QStringList{"Tessaline", "Tessaline"}));
    }

    void browsing_showsEachRecordAndEditsNothing()
    {
        TestFolder folder;
        QVERIFY(QDir().mkpath("spartiti"));
        putPage(1, Page::Left);
        putPage(3, Page::Right);
        put("spartiti/1R.jpg", "no picture");
        put("spartiti/audio/2.mp3", "");
        putArchive({"A|a|x|1", "A title with \\ → in it||y|2"});
        Form1 form;
        show(form);
        QCOMPARE(text("Text4"), "y");
        QVERIFY(!hasPicture("Image1") && control("Form1", "Picture1")->isVisible());
        QTest::keyClick(control("Form1", "Text2"), Qt::Key_PageUp);
        QCOMPARE(text("Text3"), "a");
        QVERIFY(hasPicture("Image1") && !hasPicture("Image2"));
        QCOMPARE(control<ImageFrame>("Form1", "Image2")->notice(), "1R.jpg\ncannot be shown");
        QVERIFY(!control("Form1", "Picture1")->isVisible());
        QTest::keyClick(control("Form1", "VScroll1"), Qt::Key_End);
        QCOMPARE(text("Text1"), "3");
        QCOMPARE(text("Text2"), "");
        QVERIFY(hasPicture("Image2") && Module1.pageRecord == 3 && Module1.midiRecord == 3);
        QCOMPARE(count(), "There are 2 titles");
        QVERIFY(!Module1.archiveChanged);
    }

    void add_opensOneEmptyRecord()
    {
        TestFolder folder;
        putArchive({"A|a|x|1", "B||y|2"});
        Form1 form;
        show(form);
        QTest::keyClick(control("Form1", "Text2"), Qt::Key_PageUp);
        click("Form1", "Command5");
        QCOMPARE(value(), 3);
        QCOMPARE(maximum(), 3);
        QCOMPARE(text("Text2"), "");
        QCOMPARE(count(), "There are 2 titles");
        click("Form1", "Command5");
        QCOMPARE(Module1.recCount, 3);
        type("Text2", "C");
        BoxAnswers answers;
        QTest::keyClick(control("Form1", "Text2"), Qt::Key_S, Qt::ControlModifier);
        QCOMPARE(contents("spartiti/archivio.js"), archiveOf({"A|a|x|1", "B||y|2", "C|||0"}));
        QCOMPARE(count(), "There are 3 titles");
    }

    void add_takesWhatWasTypedBehindTheLastRecord()
    {
        TestFolder folder;
        putArchive({"A|a|x|1"});
        Form1 form;
        show(form);
        QTest::keyClick(control("Form1", "Text2"), Qt::Key_PageDown);
        type("Text2", "B");
        BoxAnswers answers({QMessageBox::Ok, QMessageBox::No, QMessageBox::Ok, QMessageBox::Ok});
        click("Form1", "Command1");
        QCOMPARE(contents("spartiti/archivio.js"), archiveOf({"A|a|x|1"}));
        windowNamed("Form1")->close();
        QCOMPARE(answers.texts.value(1), "There are changes that have not been saved. Close all the same?");
        waitUntilActive("Form1");
        QTest::keyClick(control("Form1", "Text2"), Qt::Key_N, Qt::ControlModifier);
        QCOMPARE(text("Text2"), "B");
        click("Form1", "Command1");
        QCOMPARE(contents("spartiti/archivio.js"), archiveOf({"A|a|x|1", "B|||0"}));
    }

    void add_stopsAtTheLimit()
    {
        TestFolder folder;
        putArchive(QStringList(9999, "T|||1"));
        Form1 form;
        show(form);
        BoxAnswers answers;
        click("Form1", "Command5");
        QCOMPARE(answers.texts, QStringList{"The archive is full: it holds 9999 titles."});
        QCOMPARE(Module1.recCount, 9999);
    }

    void save_failingChangesNothing()
    {
        TestFolder folder;
        putArchive({"A|a|x|1"});
        Form1 form;
        show(form);
        type("Text2", "!");
        BoxAnswers answers;
        {
            FullDisk disk(0);
            click("Form1", "Command1");
        }
        QCOMPARE(answers.texts,
                 QStringList{"The archive was not saved; the file is as it was before.\n"
                             "spartiti/archivio.js: File too large"});
        QCOMPARE(contents("spartiti/archivio.js"), archiveOf({"A|a|x|1"}));
        QCOMPARE(Module1.recTitle[1], "A!");
        QVERIFY(Module1.archiveChanged);
        click("Form1", "Command1");
        QCOMPARE(contents("spartiti/archivio.js"), archiveOf({"A!|a|x|1"}));
    }

    void save_refusesToReplaceADamagedArchive()
    {
        TestFolder folder;
        put("spartiti/archivio.js", "\"cut");
        BoxAnswers answers;
        Form1 form;
        show(form);
        click("Form1", "Command1");
        QCOMPARE(answers.texts.value(1),
                 "The archive was not saved. spartiti/archivio.js is damaged and was not read. It is left as "
                 "it is.");
        QCOMPARE(contents("spartiti/archivio.js"), "\"cut");
    }

    void csvExport_standsBehindAKey()
    {
        TestFolder folder;
        putArchive({"A|a|x|1"});
        Form1 form;
        show(form);
        QVERIFY(!control("Form1", "Command6")->isVisible());
        QTest::keyClick(control("Form1", "Text2"), Qt::Key_E, Qt::ControlModifier | Qt::ShiftModifier);
        QVERIFY(control("Form1", "Command6")->isVisible());
        BoxAnswers answers;
        click("Form1", "Command6");
        QCOMPARE(answers.texts, QStringList{"OK! CONVERSIONE EFFETTUATA CON SUCCESSO CVS!"});
        QVERIFY(contents("spartiti/ARCHIVIO.CSV").startsWith("\"1\",\"A\""));
        waitUntilActive("Form1");
        QTest::keyClick(control("Form1", "Text2"), Qt::Key_E, Qt::ControlModifier | Qt::ShiftModifier);
        QVERIFY(!control("Form1", "Command6")->isVisible());
    }

    void leaving_asksOnlyAtTheCloseBox_data()
    {
        QTest::addColumn<bool>("edited");
        QTest::addColumn<bool>("byMenu");
        QTest::addColumn<int>("questions");
        QTest::newRow("close box, nothing changed") << false << false << 0;
        QTest::newRow("close box, changed") << true << false << 1;
        QTest::newRow("Exit, changed") << true << true << 0;
    }

    void leaving_asksOnlyAtTheCloseBox()
    {
        QFETCH(bool, edited);
        QFETCH(bool, byMenu);
        TestFolder folder;
        putArchive({"A|a|x|1"});
        Form1 form;
        show(form);
        if (edited)
            type("Text4", "z");
        BoxAnswers answers({QMessageBox::Yes});
        QTimer::singleShot(0, &form, [byMenu] {
            if (byMenu)
                chooseMenu("chiudi");
            else
                windowNamed("Form1")->close();
        });
        QCOMPARE(QApplication::exec(), 0);
        QTEST(int(answers.texts.size()), "questions");
        QVERIFY(!form.isLoaded());
        QCOMPARE(contents("spartiti/archivio.js"), archiveOf({"A|a|x|1"}));
    }
};

WINDOW_TEST_MAIN(MainWindowTest)
#include "main_window_test.moc"

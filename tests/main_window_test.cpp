#include "controls/image_frame.h"
#include "controls/scroll_bar.h"
#include "support/windows.h"

#include <QApplication>
#include <QImage>

static const QString window = "Form1";
static const QString path = "spartiti/archivio.js";

static bool hasPicture(const QString &frame)
{
    return !control<ImageFrame>(window, frame)->picture().isNull();
}

class MainWindowTest : public WindowTest
{
    Q_OBJECT
private slots:
    void start_standsWhereItShould()
    {
        const char *begin = "There are no titles in the archive of this folder:";
        const std::tuple<QByteArray, int, int, QString, QString, const char *> rows[] = {
            {archiveOf({"A|||1", "B|||2"}), 2, 3, "2", "There are 2 titles", ""},
            {archiveOf({}), 1, 1, "1", "There are 0 titles", begin},
            {QByteArray(), 1, 9999, "", "", begin},
        };
        for (const auto &[archive, shown, reach, record, label, box] : rows) {
            const Program program(archive);
            const auto *bar = control<ScrollBar>(window, "VScroll1");
            QCOMPARE(bar->value(), shown);
            QCOMPARE(bar->maximum(), reach);
            QCOMPARE(textOf(window, "Text1"), record);
            QCOMPARE(textOf(window, "Label6"), label);
            QCOMPARE(program.told.join("").section('\n', 0, 0), box);
            QCOMPARE(Module1.pageRecord, record.toInt());
            QCOMPARE(contents(path), archive.isNull() ? QByteArray("(missing)") : archive);
        }
    }

    void start_beginsNothingOverAnUnreachableArchive()
    {
        Program program;
        program.rooms.form1.unload();
        QVERIFY(QFile::remove(path) && QFile::link("archivio.js", path));
        program.rooms.form1.show();
        QVERIFY(program.told.join("").startsWith("spartiti/archivio.js cannot be read"));
    }

    void browsing_showsEachRecordAndEditsNothing()
    {
        const Program program(archiveOf({"A|a|x|1", "A title with \\ in it||y|2"}));
        for (const char *page : {"1L", "3R"})
            QVERIFY(QImage(200, 300, QImage::Format_RGB32).save(QString("spartiti/%1.jpg").arg(page)));
        put("spartiti/1R.jpg", "no picture");
        put("spartiti/audio/1.mp3", "");
        QVERIFY(!hasPicture("Image1") && !control(window, "Picture1")->isVisible());
        press(window, "Text2", Qt::Key_PageUp);
        QCOMPARE(textOf(window, "Text2") + textOf(window, "Text3") + textOf(window, "Text4"), "Aax");
        QVERIFY(hasPicture("Image1") && !hasPicture("Image2") && control(window, "Picture1")->isVisible());
        press(window, "VScroll1", Qt::Key_End);
        QCOMPARE(textOf(window, "Text1") + textOf(window, "Text2"), "3");
        QVERIFY(hasPicture("Image2") && !Module1.archiveChanged);
    }

    void add_opensOneEmptyRecordUpToTheLimit()
    {
        const Program program(archiveOf(QStringList(9998, "T|||1")));
        press(window, "Text2", Qt::Key_PageUp);
        click(window, "Command5");
        click(window, "Command5"); // one is enough
        QCOMPARE(textOf(window, "Text1") + textOf(window, "Text2"), "9999");
        QCOMPARE(textOf(window, "Label6"), "There are 9998 titles");
        type(window, "Text2", "C");
        press(window, "Text2", Qt::Key_S, Qt::ControlModifier);
        QCOMPARE(contents(path), archiveOf(QStringList(9998, "T|||1") + QStringList("C|||0")));
        QCOMPARE(textOf(window, "Label6"), "There are 9999 titles");
        click(window, "Command5");
        QCOMPARE(program.told.value(1), "The archive is full: it holds 9999 titles.");
    }

    void add_takesWhatWasTypedBehindTheLastRecord()
    {
        const Program program(archiveOf({"A|a|x|1"}));
        press(window, "Text2", Qt::Key_PageDown);
        type(window, "Text2", "B");
        click(window, "Command1");
        QCOMPARE(contents(path), archiveOf({"A|a|x|1"}));
        windowNamed(window)->close(); // asks, and stays
        QCOMPARE(program.told.size(), 2);
        click(window, "Command5");
        click(window, "Command1");
        QCOMPARE(contents(path), archiveOf({"A|a|x|1", "B|||0"}));
    }

    void save_failingChangesNothing()
    {
        const Program program(archiveOf({"A|a|x|1"}));
        type(window, "Text2", "!");
        clickWithFullDisk(window, "Command1");
        QVERIFY(program.told.value(0).startsWith("The archive was not saved; the file is as it was"));
        QCOMPARE(contents(path), archiveOf({"A|a|x|1"}));
        QVERIFY(Module1.recTitle[1] == "!" && Module1.archiveChanged);
        click(window, "Command1");
        QCOMPARE(contents(path), archiveOf({"!|a|x|1"}));
    }

    void save_asksBeforeItUndoesWhatAnotherProgramDid()
    {
        const QByteArray others = archiveOf({"A|a|x|1", "B|||2"});
        const Program program(archiveOf({"A|a|x|1"}), {Answer::No, Answer::Yes, Answer::Ok});
        type(window, "Text2", "!");
        put(path, others);
        click(window, "Command1");
        QCOMPARE(contents(path), others);
        click(window, "Command1");
        click(window, "Command1"); // it is this window's own file again: no question
        QCOMPARE(contents(path), archiveOf({"!|a|x|1"}));
        QCOMPARE(program.told.size(), 4);
    }

    void save_refusesToReplaceADamagedArchive()
    {
        const Program program("\"cut");
        click(window, "Command1");
        QVERIFY(program.told.value(0).startsWith("spartiti/archivio.js is damaged and was not read."));
        QVERIFY(program.told.value(1).startsWith("The archive was not saved. spartiti/archivio.js is"));
        QCOMPARE(contents(path), "\"cut");
    }

    void anArchive_isBegunSavedAndExported()
    {
        const Program program({}, {Answer::Yes, Answer::Ok});
        QCOMPARE(contents(path), archiveOf({"|||0"}));
        type(window, "Text2", "For Elise, \"so gut\"");
        click(window, "Command1");
        QCOMPARE(contents(path), archiveOf({"For Elise, 'so gut'|||0"}));
        QCOMPARE(program.told.value(1), "Successfully saved!");
        click(window, "Command5");
        QVERIFY(!control(window, "Command6")->isVisible());
        press(window, "Text2", Qt::Key_E, Qt::ControlModifier | Qt::ShiftModifier);
        click(window, "Command6");
        QCOMPARE(contents("spartiti/ARCHIVIO.CSV"),
                 "\"1\",\"For Elise, 'so gut'\",\"\",\"\",\"0\",\"0\",\"0\",\"0\"\r\n"
                 "\"\",\"\",\"\",\"\",\"0\",\"0\",\"0\",\"0\"\r\n");
    }

    void leaving_asksOnlyAtTheCloseBox()
    {
        const std::tuple<bool, bool, int> rows[] = {{false, false, 0}, {true, false, 1}, {true, true, 0}};
        for (const auto &[edited, byMenu, questions] : rows) {
            Program program(archiveOf({"A|a|x|1"}), {Answer::Yes});
            if (edited)
                type(window, "Text4", "z");
            QTimer::singleShot(0, &program.rooms.form1,
                               [&] { byMenu ? chooseMenu("chiudi") : void(windowNamed(window)->close()); });
            QCOMPARE(QApplication::exec(), 0);
            QCOMPARE(program.told.size(), questions);
            QCOMPARE(contents(path), archiveOf({"A|a|x|1"}));
        }
    }
};

QTEST_MAIN(MainWindowTest)
#include "main_window_test.moc"

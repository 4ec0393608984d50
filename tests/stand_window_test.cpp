#include "support/windows.h"

#include <QClipboard>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QPushButton>

static const QString window = "Copy to the stand";
static const QString table = "What is to be done";

static QString state()
{
    return textOf(window, "state");
}

// Pastes the folder into the box for choosing one, and clicks "Choose".
static void chooseFolder(const QString &folder)
{
    QTimer typing;
    QObject::connect(&typing, &QTimer::timeout, [&] {
        auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
        if (!dialog || !dialog->isVisible())
            return;
        typing.stop();
        auto *box = dialog->findChild<QLineEdit *>();
        box->selectAll();
        QGuiApplication::clipboard()->setText(QDir::current().filePath(folder));
        QTest::keyClick(box, Qt::Key_V, Qt::ControlModifier);
        auto *buttons = dialog->findChild<QDialogButtonBox *>();
        QTest::mouseClick(buttons->button(QDialogButtonBox::Open), Qt::LeftButton);
    });
    typing.start(5);
    click(window, "Choose a folder…");
}

class StandWindowTest : public WindowTest
{
    Q_OBJECT
private slots:
    void archive_isCarriedThereAfterTheQuestions()
    {
        Program program;
        put("spartiti/2L.jpg", "page");
        QDir().mkdir("stand");
        chooseMenu("Copy to the stand…");
        QVERIFY(state().startsWith("Choose the folder of the stand"));
        program.answers = {enterKey};
        chooseFolder("stand");
        QVERIFY(program.told.value(0).startsWith("In this folder there is no start page (*.html)"));
        QVERIFY(!control(window, "Copy")->isEnabled());
        put("stand/index.html", {});
        put("stand/spartiti/archivio.js", archiveOf({"ONE|||", "Aria|||", "|||", "Fourth|||"}));
        chooseFolder("stand");
        QCOMPARE(program.told.size(), 1);
        QVERIFY(state().startsWith("1 file is new, 1 changed, 0 the same. There is room: "));
        QCOMPARE(cell(window, table, 0, 0) + ' ' + cell(window, table, 0, 2), "New 2 Two");
        QVERIFY(program.boxesOf(window, "Copy", {enterKey})
                    .endsWith("want that?\n2 there: Aria, here: Two\n4 there: Fourth, here: none"));
        QCOMPARE(contents("stand/spartiti/2L.jpg"), "(missing)");
        program.boxesOf(window, "Copy", {Answer::Yes});
        QCOMPARE(program.told.last(),
                 "3 songs, 0 playlists: all of it is on the stand, read back and compared. You can take it.");
        QCOMPARE(contents("stand/spartiti/2L.jpg"), "page");
        QVERIFY(state().startsWith("All of it is on the stand already: 2 files."));
        put("stand/spartiti/9L.jpg", "x");
        press(window, "Copy", Qt::Key_F5);
        QVERIFY(state().contains("1 file is only on the stand and will stay there."));
        press(window, "Copy", Qt::Key_Escape);
        chooseMenu("Copy to the stand…"); // which knows the folder still
        QCOMPARE(cell(window, table, 0, 0), "Only on the stand");
    }

    void whatDoesNotComeAlong_isSaid()
    {
        Program program;
        put("stand/index.html", {});
        putLink("gone", "spartiti/1R.jpg");
        type("Form1", "Title", "New");
        chooseMenu("Copy to the stand…");
        chooseFolder("stand");
        QVERIFY(state().endsWith("What you have changed and not saved will not come along."));
        QVERIFY(program.boxesOf(window, "Copy", {enterKey}).startsWith("There are changes that have not"));
        QVERIFY(!QFile::exists("stand/spartiti"));
        QVERIFY(
            program.boxesOf(window, "Copy", {Answer::Yes})
                .endsWith("You can take it.\nThese files were not copied:\n1R.jpg: it is no ordinary file"));
        put("spartiti/archivio.js", "damaged");
        click(window, "Look again");
        QVERIFY(state().startsWith("Nothing can be copied. spartiti/archivio.js"));
        QVERIFY(!control(window, "Copy")->isEnabled());
    }
};

QTEST_MAIN(StandWindowTest)
#include "stand_window_test.moc"

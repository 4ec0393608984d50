#include "audio/categories_file.h"
#include "support/windows.h"

#include <QClipboard>

static const QString window = "Categories";
static const char file[] = "spartiti/generi.js";

static QByteArray fileWith(const QString &first)
{
    return fileOf("generi", linesOf(first + QString("|Rock").repeated(32)));
}

using Losing = std::tuple<QByteArray, QByteArray, QString>; // the file, what becomes of it, the question

class CategoriesWindowTest : public WindowTest
{
    Q_OBJECT
private slots:
    void missingFile_beginsWithAUsualSetAndReachesMp3()
    {
        const Program program;
        click("Form1", "Mp3");
        QVERIFY(program.told.value(0).contains("\"Archive\", \"Categories…\""));
        click("mp3", "Close");
        chooseMenu("Categories…");
        QCOMPARE(textOf(window, "Category 33"), "Other");
        chooseMenu("Find a song…");
        waitUntilActive(window);
        type(window, "Category 7", "Slow waltz");
        QGuiApplication::clipboard()->setText("Chan\"son → €");
        control<QLineEdit>(window, "Category 2")->selectAll();
        press(window, "Category 2", Qt::Key_V, Qt::ControlModifier);
        press(window, "Category 2", Qt::Key_S, Qt::ControlModifier);
        QCOMPARE(program.told.value(1), "Successfully saved!");
        QCOMPARE(contents(file).split('\n').value(2), "\"Chan'son  \x80\",\r");
        QCOMPARE(cell("Songs", "Songs", 2, 4), "Slow waltz");
        click("Form1", "Mp3");
        QCOMPARE(textOf("mp3", "Command3(2)"), "Chan'son  €");
        press(window, "Category 2", Qt::Key_Escape);
        QVERIFY(!windowNamed(window) && program.told.size() == 2);
    }

    void unsavedNames_areNotThrownAwayUnasked()
    {
        Program program;
        put(file, fileWith("Jazz"));
        chooseMenu("Categories…");
        type(window, "Category 1", "Blues");
        clickWithFullDisk(window, "Save", 20);
        QVERIFY(program.told.value(0).startsWith("The names were not saved; the file is as it was before."));
        program.answers = {enterKey, Answer::Yes};
        press(window, "Category 1", Qt::Key_Escape);
        chooseMenu("Categories…"); // comes forward as it is
        QCOMPARE(textOf(window, "Category 1"), "Blues");
        click(window, "Close");
        QVERIFY(!windowNamed(window) && program.told.size() == 3);
        QCOMPARE(contents(file), fileWith("Jazz"));
    }

    // What another program made of the file, or what it was, is replaced by a Yes alone.
    void save_asksBeforeSomethingIsLost_data()
    {
        const QByteArray damaged = fileWith("Jazz").replace("Jazz\",", "Jazz");
        tableOf<Losing>({{"changed", {fileWith("Jazz"), fileWith("Tango"), "Another program has changed"}},
                         {"damaged", {damaged, damaged, "spartiti/generi.js: its line 2 should"}}});
    }
    void save_asksBeforeSomethingIsLost()
    {
        const auto [opened, meanwhile, question] = tableRow<Losing>();
        Program program;
        put(file, opened);
        chooseMenu("Categories…");
        for (int k = 1; k <= categoryCount; k += 1)
            type(window, QStringLiteral("Category %1").arg(k), k == 1 ? "Blues" : "Rock");
        put(file, meanwhile);
        QCOMPARE(program.boxesOf(window, "Save", {enterKey}).first(question.size()), question);
        QCOMPARE(contents(file), meanwhile);
        program.boxesOf(window, "Save", {Answer::Yes});
        QCOMPARE(contents(file), fileWith("Blues"));
    }
};

QTEST_MAIN(CategoriesWindowTest)
#include "categories_window_test.moc"

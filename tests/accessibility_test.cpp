#include "controls/small_screen.h"
#include "main/Form1.h"
#include "support/lists.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>

#include <map>

using Role = QAccessible::Role;

// A screen reader tells these apart, and knows what can be done with each.
static const std::map<Role, QString> usableRoles{
    {Role::PushButton, "button"}, {Role::EditableText, "text"}, {Role::ScrollBar, "scroll bar"},
    {Role::List, "list"},         {Role::Tree, "tree"},         {Role::ComboBox, "combo box"},
    {Role::MenuItem, "entry"},    {Role::Graphic, "picture"},   {Role::Window, "window"},
};

static QString spoken(const QAccessibleInterface *interface)
{
    if (!interface)
        return "(nothing)";
    const auto role = usableRoles.find(interface->role());
    const QString name = interface->text(QAccessible::Name).simplified();
    QString all = QStringLiteral("%1: %2").arg(role == usableRoles.end() ? "(no role)" : role->second,
                                               name.isEmpty() ? "(no name)" : name);
    // The name of a combo box is its text on some systems, so what it is for must stand beside it.
    if (interface->role() == Role::ComboBox && interface->text(QAccessible::Description).isEmpty())
        all += " (no description)";
    return all;
}

// What a person reaches with the mouse or the keyboard, and the pictures. The parts that Qt makes a control
// of bear no name of ours; what they do is said of the control.
static bool isUsable(const QWidget *widget)
{
    if (qobject_cast<const QLineEdit *>(widget))
        return true;
    if (widget->objectName().isEmpty() || widget->objectName().startsWith("qt_"))
        return false;
    return widget->focusPolicy() != Qt::NoFocus || qobject_cast<const QAbstractButton *>(widget)
        || widget->objectName().startsWith("Image");
}

// What a screen reader says of everything that a person can use in a window.
static QStringList spokenControls(const QWidget *window)
{
    QStringList all;
    for (QWidget *widget : window->findChildren<QWidget *>()) {
        if (isUsable(widget) && widget->isVisibleTo(window))
            all += spoken(QAccessible::queryAccessibleInterface(widget));
    }
    return all;
}

// The captions that stand in a label or a button too small for them.
static QStringList cutOffTexts(const QWidget *window)
{
    QStringList all;
    for (const auto *button : window->findChildren<QAbstractButton *>()) {
        const QString wordBelowWord = button->text().replace(' ', '\n');
        if (button->fontMetrics().size(0, wordBelowWord).width() > button->width())
            all += button->text();
    }
    for (const auto *label : window->findChildren<QLabel *>()) {
        if (label->isVisibleTo(window) && label->sizeHint().boundedTo(label->size()) != label->sizeHint()
            && (!label->wordWrap() || label->heightForWidth(label->width()) > label->height()))
            all += label->text();
    }
    return all;
}

// Each step is an entry of the main window's menu, a window and a control to click on, or a window and a
// file of its list.
static void go(const QStringList &steps)
{
    for (const QString &step : steps) {
        const QStringList parts = step.split('/');
        if (parts.size() == 1)
            chooseMenu(step);
        else if (parts[1].contains('.'))
            clickFile(parts[0], parts[1]);
        else
            click(parts[0], parts[1]);
    }
}

class AccessibilityTest : public QObject
{
    Q_OBJECT
private slots:
    void everyWindow_isSeenAndSpoken_data()
    {
        QTest::addColumn<QStringList>("way");
        QTest::addColumn<int>("controls");
        QTest::newRow("Form1") << QStringList() << 12;
        QTest::newRow("sinistra") << QStringList("Form1/Command3") << 4;
        QTest::newRow("destra") << QStringList("Form1/Command4") << 4;
        QTest::newRow("mp3") << QStringList("Form1/Command2") << 36;
        QTest::newRow("playlistfrm") << QStringList("playlist") << 13;
        QTest::newRow("midifrm") << QStringList("midi") << 16 * 4 + 3;
        QTest::newRow("Premerge") << QStringList("merging") << 5;
        QTest::newRow("merging") << QStringList({"merging", "Premerge/index.html", "Premerge/Command1"}) << 4;
    }
    void everyWindow_isSeenAndSpoken()
    {
        QFETCH(QStringList, way);
        QFETCH(int, controls);
        const QString window = QTest::currentDataTag();
        TestFolder folder;
        putArchive({"One|Somebody|slow|1", "Two|||0"});
        put("spartiti/generi.js", "var generi = [\r\n\"Song\",\r\n\"\",\r\n ];\r\n");
        put("index.html", {});
        const BoxAnswers answers;
        Form1 form;
        form.show();
        go(way);

        QWidget *shown = windowNamed(window);
        QVERIFY(shown);
        QCOMPARE(shown->size().boundedTo(largestWindow), shown->size());
        QCOMPARE(cutOffTexts(shown).join("; "), QString());
        QCOMPARE(spoken(QAccessible::queryAccessibleInterface(shown)), "window: " + shown->windowTitle());
        const QStringList all = spokenControls(shown);
        QCOMPARE(all.size(), controls);
        for (const QString &one : all) {
            QVERIFY2(!one.contains("(no"), qPrintable(one));
            QVERIFY2(all.count(one) == 1, qPrintable("twice: " + one));
        }
    }

    void menu_saysItsEntries()
    {
        TestFolder folder;
        putArchive({"One|||0"});
        Form1 form;
        form.show();
        const QAccessibleInterface *menu =
            QAccessible::queryAccessibleInterface(control<QMenu>("Form1", "edit"));
        QStringList entries;
        for (int i = 0; i < menu->childCount(); i += 1)
            entries += spoken(menu->child(i));
        QCOMPARE(
            entries,
            QStringList({"entry: Playlist Manager", "entry: Midi device", "entry: Merging", "entry: Exit"}));
    }
};

WINDOW_TEST_MAIN(AccessibilityTest)
#include "accessibility_test.moc"

#include "support/windows.h"
#include "window/small_screen.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QLabel>
#include <QLineEdit>

#include <map>

using Role = QAccessible::Role;

// A screen reader tells these apart, and knows what can be done with each.
static const std::map<Role, QString> usableRoles{
    {Role::PushButton, "button"}, {Role::EditableText, "text"}, {Role::ScrollBar, "scroll bar"},
    {Role::List, "list"},         {Role::Tree, "tree"},         {Role::ComboBox, "combo box"},
    {Role::Graphic, "picture"},   {Role::Window, "window"},     {Role::Table, "table"},
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

class AccessibilityTest : public WindowTest
{
    Q_OBJECT
private slots:
    void everyWindow_isSeenAndSpoken_data()
    {
        QTest::addColumn<QStringList>("way");
        QTest::addColumn<int>("controls");
        QTest::addRow("Form1") << QStringList{} << 12;
        QTest::addRow("sinistra") << QStringList{"Form1/Left"} << 4;
        QTest::addRow("destra") << QStringList{"Form1/Right"} << 4;
        QTest::addRow("mp3") << QStringList{"Form1/Mp3"} << 36;
        QTest::addRow("playlistfrm") << QStringList{"Playlist Manager"} << 13;
        QTest::addRow("midifrm") << QStringList{"Midi device"} << 16 * 4 + 3;
        QTest::addRow("Premerge") << QStringList{"Merging"} << 5;
        QTest::addRow("merging") << QStringList{"Merging", "Premerge/index.html", "Premerge/Ok"} << 4;
        QTest::addRow("check") << QStringList{"Check the archive…"} << 4;
        QTest::addRow("songs") << QStringList{"Find a song…"} << 6;
    }
    void everyWindow_isSeenAndSpoken()
    {
        QFETCH(const QStringList, way);
        const Program program;
        put("spartiti/generi.js", fileOf("generi", linesOf("Song|")));
        put("index.html", {});
        go(way);
        QWidget *shown = windowNamed(QTest::currentDataTag());
        QVERIFY(shown);
        QCOMPARE(shown->size().boundedTo(largestWindow), shown->size());
        QCOMPARE(cutOffTexts(shown).join("; "), QString());
        QCOMPARE(spoken(QAccessible::queryAccessibleInterface(shown)), "window: " + shown->windowTitle());
        QStringList all = spokenControls(shown);
        QTEST(static_cast<int>(all.size()), "controls");
        QVERIFY2(!all.join("; ").contains("(no"), qPrintable(all.join("; ")));
        QVERIFY2(all.removeDuplicates() == 0, "a control cannot be told from another one");
    }
};

QTEST_MAIN(AccessibilityTest)
#include "accessibility_test.moc"

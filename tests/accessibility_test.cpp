#include "support/table.h"
#include "support/windows.h"
#include "window/small_screen.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QLabel>

using Role = QAccessible::Role;

// A screen reader tells these apart, and knows what can be done with each.
static const QList<Role> usableRoles{Role::PushButton, Role::EditableText, Role::ScrollBar,
                                     Role::List,       Role::Tree,         Role::ComboBox,
                                     Role::Graphic,    Role::Window,       Role::Table};

static QString spoken(QWidget *widget)
{
    const QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(widget);
    if (!interface || !usableRoles.contains(interface->role()))
        return widget->objectName() + " (no role)";
    const QString name = interface->text(QAccessible::Name).simplified();
    QString all =
        QStringLiteral("%1: %2").arg(int(interface->role())).arg(name.isEmpty() ? "(no name)" : name);
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

using Window = std::pair<QStringList, int>; // the way to it, and how many controls a person can use

class AccessibilityTest : public WindowTest
{
    Q_OBJECT
private slots:
    void everyWindow_isSeenAndSpoken_data()
    {
        tableOf<Window>({{"Form1", {{}, 12}},
                         {"sinistra", {{"Form1/Left"}, 4}},
                         {"destra", {{"Form1/Right"}, 4}},
                         {"mp3", {{"Form1/Mp3"}, 36}},
                         {"playlistfrm", {{"Playlist Manager"}, 13}},
                         {"midifrm", {{"Midi device"}, 16 * 4 + 3}},
                         {"Premerge", {{"Merging"}, 5}},
                         {"merging", {{"Merging", "Premerge/index.html", "Premerge/Ok"}, 4}},
                         {"check", {{"Check the archive…"}, 4}},
                         {"stand", {{"Copy to the stand…"}, 5}},
                         {"songs", {{"Find a song…"}, 6}}});
    }
    void everyWindow_isSeenAndSpoken()
    {
        const auto [way, controls] = tableRow<Window>();
        const Program program;
        put("spartiti/generi.js", fileOf("generi", linesOf("Song|")));
        put("index.html", {});
        go(way);
        QWidget *shown = windowNamed(QTest::currentDataTag());
        QVERIFY(shown);
        QCOMPARE(shown->size().boundedTo(largestWindow), shown->size());
        QCOMPARE(cutOffTexts(shown).join("; "), QString());
        QVERIFY(spoken(shown).endsWith(": " + shown->windowTitle()));
        QStringList all;
        for (QWidget *widget : shown->findChildren<QWidget *>()) {
            if (isUsable(widget) && widget->isVisibleTo(shown))
                all += spoken(widget);
        }
        QCOMPARE(all.size(), controls);
        QVERIFY2(!all.join("; ").contains("(no"), qPrintable(all.join("; ")));
        QVERIFY2(all.removeDuplicates() == 0, "a control cannot be told from another one");
    }
};

QTEST_MAIN(AccessibilityTest)
#include "accessibility_test.moc"

#include "support/table.h"
#include "support/windows.h"
#include "window/small_screen.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QLabel>
#include <QTextBlock>
#include <QTextBrowser>

using Role = QAccessible::Role;

// A screen reader tells these apart, and knows what can be done with each.
static const QList<Role> usableRoles{Role::PushButton, Role::EditableText, Role::ScrollBar,
                                     Role::List,       Role::Tree,         Role::ComboBox,
                                     Role::Graphic,    Role::Window,       Role::Table};

static QString spoken(QWidget *widget)
{
    const QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(widget);
    const Role role = interface->role();
    const QString name = interface->text(QAccessible::Name).simplified();
    const QString kind = usableRoles.contains(role) ? QString::number(role) : "(no role)";
    // The name of a combo box is its text on some systems, so what it is for must stand beside it.
    const bool isUnclear = role == Role::ComboBox && interface->text(QAccessible::Description).isEmpty();
    return kind + ": " + (name.isEmpty() ? "(no name)" : name) + (isUnclear ? " (no description)" : "");
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

// The button or the entry that opens it, how many controls a person can use, and its chapter of the manual.
using Window = std::tuple<QString, int, QString>;

class AccessibilityTest : public WindowTest
{
    Q_OBJECT
private slots:
    void everyWindow_isSeenSpokenAndExplained_data()
    {
        const QString songs = "Songs of another stand", recordings = "Recordings and categories";
        tableOf<Window>({{"Form1", {{}, 12, "The main window"}},
                         {"sinistra", {"Left", 4, "Pages"}},
                         {"destra", {"Right", 4, "Pages"}},
                         {"mp3", {"Mp3", 36, recordings}},
                         {"categories", {"Categories…", 35, recordings}},
                         {"playlistfrm", {"Playlist Manager", 13, "Playlists"}},
                         {"midifrm", {"Midi device", 16 * 4 + 3, "MIDI settings"}},
                         {"Premerge", {"Merging", 5, songs}},
                         {"merging", {{}, 4, songs}},
                         {"songs", {"Find a song…", 6, "Finding songs"}},
                         {"intake", {"Bring in songs…", 8, "Bringing in songs"}},
                         {"versions", {"Earlier versions…", 2, "Earlier versions"}},
                         {"check", {"Check the archive…", 4, "Checking the archive"}},
                         {"stand", {"Copy to the stand…", 5, "To the stand"}}});
    }
    void everyWindow_isSeenSpokenAndExplained()
    {
        const auto [opening, controls, chapter] = tableRow<Window>();
        const QString name = QTest::currentDataTag();
        Program program;
        put("spartiti/generi.js", fileOf("generi", linesOf("Song|")));
        chooseMenu("Manual");
        waitUntilActive("Form1");
        if (name == "merging")
            program.rooms.merging_.show();
        else if (opening.size() > 5)
            chooseMenu(opening);
        else if (!opening.isEmpty())
            click("Form1", opening);
        waitUntilActive(name);
        QWidget *shown = windowNamed(name);
        const QSize least = shown->minimumSizeHint().expandedTo(shown->minimumSize());
        QCOMPARE(least.boundedTo(largestWindow), least);
        QCOMPARE(cutOffTexts(shown).join("; "), QString());
        QStringList all;
        for (QWidget *widget : shown->findChildren<QWidget *>()) {
            if (isUsable(widget) && widget->isVisibleTo(shown))
                all += spoken(widget);
        }
        QVERIFY2(!all.join("; ").contains("(no"), qPrintable(all.join("; ")));
        QVERIFY2(all.removeDuplicates() == 0, "a control cannot be told from another one");
        QCOMPARE(all.size(), controls);
        QTest::keyClick(shown, Qt::Key_F1);
        waitUntilActive("Manual");
        const auto *manual = control<QTextBrowser>("Manual", "Text of the manual");
        QCOMPARE(manual->textCursor().block().text(), chapter);
    }
};

QTEST_MAIN(AccessibilityTest)
#include "accessibility_test.moc"

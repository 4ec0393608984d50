// What guides a person: every window as it is seen, spoken and explained, and docs/manual.md against the
// program: its keys, its messages, its links and pictures, and F1.

#include "support/windows.h"
#include "window/small_screen.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QDirIterator>
#include <QLabel>
#include <QRegularExpression>
#include <QShortcut>
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

static const QString sources = TESSALINE_SOURCES;

static QString manual()
{
    return QString::fromUtf8(contents(sources + "/docs/manual.md"));
}

static QStringList captured(const QString &pattern, const QString &text)
{
    QStringList found;
    for (const auto &match :
         QRegularExpression(pattern, QRegularExpression::MultilineOption).globalMatch(text))
        found += match.captured(1);
    return found;
}

// What the file that handles them looks for in an event, since the key goes on elsewhere.
static const QSet<QString> keysOfControls = {"Down",   "Up",    "Enter", "Return", "F2",
                                             "Ctrl+C", "Space", "Menu",  "Alt+S",  "Escape"};

static QSet<QString> keysOfManual()
{
    QSet<QString> keys;
    const QString table = manual().section("## Keys", 1).section("\n## ", 0, 0);
    for (const QString &cell : captured("^\\| ([^|]+) \\|", table))
        for (const QString &key : cell.split(", "))
            keys += key;
    return keys - QSet<QString>{"key", "---"};
}

static QSet<QString> keysOfProgram()
{
    QList<QKeySequence> all;
    for (const QWidget *widget : QApplication::allWidgets()) {
        for (const auto *shortcut : widget->findChildren<QShortcut *>())
            all += shortcut->key();
        for (const QAction *action : widget->actions())
            all += action->shortcuts();
    }
    QSet<QString> keys;
    for (const QKeySequence &key : std::as_const(all))
        keys += key.toString().replace("PgUp", "Page Up").replace("PgDown", "Page Down");
    // Older keys for undo and redo, which the toolkit adds.
    return keys - QSet<QString>{"", "Alt+Backspace", "Alt+Shift+Backspace"};
}

// The texts that hold the end of a sentence, with … for what is put in. Those of up to eight words are left
// out: they explain themselves.
static QStringList sentencesOf(QString code)
{
    static const QRegularExpression comment("(^|\\s)//.*$", QRegularExpression::MultilineOption);
    static const QRegularExpression seam("\"\\s*\\n\\s*\""), sentence("[.?!:](\\s|$)");
    static const QRegularExpression placeholder("%\\d"), joint("^[.:;] ");
    QStringList sentences;
    for (QString text : captured("\"((?:[^\"\\\\\\n]|\\\\.)*)\"", code.remove(comment).remove(seam))) {
        text.replace("\\n", " ").replace("\\\"", "\"").replace(placeholder, "…");
        if (text.split(' ', Qt::SkipEmptyParts).size() > 8 && text.contains(sentence))
            sentences += text.remove(joint).simplified();
    }
    return sentences;
}

// Patterns of the long messages that say all there is to say; the findings of "Check the archive" are told by
// what stands beside them there.
static const QStringList explainThemselves = {
    "\\bas (it|they) (was|were|is)\\b|Nothing (is|was)|was not looked at|cannot be read\\.|no display",
    "^(These files|These playlists|Words of|Tags:)|were brought in|Some of it went otherwise|merger of the",
    "has room for|no more|names can be given|to begin with|a new name here|there before is a version",
    "Close all the same|still there: another|on the stand already|MIT licence",
};

// The button or the entry that opens it, how many controls a person can use, and its chapter of the manual.
using Window = std::tuple<QString, int, QString>;

class GuidanceTest : public WindowTest
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

    void everyKey_standsInTheTable_andEveryOfTheTableIsOne()
    {
        Program program;
        for (const char *entry :
             {"Playlist Manager", "Midi device", "Find a song…", "Bring in songs…", "Categories…",
              "Check the archive…", "Copy to the stand…", "Earlier versions…", "Manual"})
            chooseMenu(entry);
        const QSet<QString> real = keysOfProgram(), told = keysOfManual();
        QCOMPARE(QStringList((real - told).values()).join(", "), QString());
        QCOMPARE(QStringList((told - real - keysOfControls).values()).join(", "), QString());
    }

    void everyMessage_standsInTheManualOrExplainsItself()
    {
        const QString told = manual().simplified();
        const QRegularExpression plain(explainThemselves.join('|'));
        const auto isTold = [&](const QString &sentence) {
            const QStringList parts = sentence.split("…");
            return std::ranges::all_of(parts, [&](const QString &part) {
                return part.simplified().size() < 3 || told.contains(part.simplified());
            });
        };
        QStringList untold;
        QDirIterator files(sources + "/src", {"*.cpp"}, QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QString file = files.next();
            if (file.endsWith("_findings.cpp"))
                continue;
            for (const QString &text : sentencesOf(QString::fromUtf8(contents(file))))
                if (!text.contains(plain) && !isTold(text))
                    untold += file + ": " + text;
        }
        QCOMPARE(untold.join('\n'), QString());
    }

    void linksAndPictures_resolve()
    {
        const Program program;
        chooseMenu("Manual");
        QSet<QString> anchors, links, pictures;
        const auto *text = control<QTextBrowser>("Manual", "Text of the manual")->document();
        for (QTextBlock block = text->begin(); block.isValid(); block = block.next()) {
            for (const QTextLayout::FormatRange &part : block.textFormats()) {
                for (const QString &anchor : part.format.anchorNames())
                    anchors += '#' + anchor;
                links += part.format.anchorHref();
                pictures += part.format.toImageFormat().name();
            }
        }
        QVERIFY(links.size() > 15 && pictures.size() > 7);
        QCOMPARE(QStringList((links - anchors).values()).join(' '), QString());
        for (const QString &picture : pictures - QSet<QString>{""})
            QVERIFY2(QFile::exists(sources + "/docs/" + picture) && QFile::exists(":/manual/" + picture),
                     qPrintable(picture));
    }

    void search_goesRoundAndSaysWhatIsNotThere()
    {
        const Program program;
        chooseMenu("Manual");
        const auto *text = control<QTextBrowser>("Manual", "Text of the manual");
        type("Manual", "Search", "BANK select");
        const int first = text->textCursor().position();
        QCOMPARE(text->textCursor().selectedText() + textOf("Manual", "found"), "Bank Select");
        press("Manual", "Search", Qt::Key_Return);
        QCOMPARE(text->textCursor().position(), first);
        type("Manual", "Search", "saxophone");
        QCOMPARE(textOf("Manual", "found"), "Not in the manual");
    }
};

QTEST_MAIN(GuidanceTest)
#include "guidance_test.moc"

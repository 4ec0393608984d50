// docs/manual.md against the program: its keys, its messages, its links and pictures, and F1.

#include "support/table.h"
#include "support/windows.h"

#include <QDirIterator>
#include <QMenu>
#include <QRegularExpression>
#include <QScrollBar>
#include <QShortcut>
#include <QTextBlock>
#include <QTextBrowser>

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
    QSet<QString> keys;
    const auto add = [&](const QList<QKeySequence> &each) {
        for (const QKeySequence &key : each)
            keys += key.toString().replace("PgUp", "Page Up").replace("PgDown", "Page Down");
    };
    for (const QWidget *window : QApplication::topLevelWidgets()) {
        for (const auto *shortcut : window->findChildren<QShortcut *>())
            add({shortcut->key()});
        for (const auto *menu : window->findChildren<QMenu *>())
            for (const QAction *entry : menu->actions())
                add(entry->shortcuts());
        for (const QAction *action : window->actions())
            add(action->shortcuts());
    }
    // Older keys for undo and redo, which the toolkit adds.
    return keys - QSet<QString>{"", "Alt+Backspace", "Alt+Shift+Backspace"};
}

// The texts of more than four words that hold the end of a sentence, with … for what is put in.
static QStringList sentencesOf(QString code)
{
    static const QRegularExpression comment("(^|\\s)//.*$", QRegularExpression::MultilineOption);
    static const QRegularExpression seam("\"\\s*\\n\\s*\"");
    static const QRegularExpression sentence("[.?!:](\\s|$)");
    static const QRegularExpression placeholder("%\\d");
    static const QRegularExpression joint("^[.:;] ");
    QStringList sentences;
    code.remove(comment).remove(seam);
    for (QString text : captured("\"((?:[^\"\\\\\\n]|\\\\.)*)\"", code)) {
        text.replace("\\n", " ").replace("\\\"", "\"").replace(placeholder, "…");
        if (text.split(' ', Qt::SkipEmptyParts).size() > 4 && text.contains(sentence))
            sentences += text.remove(joint).simplified();
    }
    return sentences;
}

// Patterns of the messages that say all there is to say; the findings of "Check the archive" are told by
// what stands beside them there.
static const QStringList explainThemselves = {
    "(was|were|are|is) as (it was|they were)( before)?",
    "(is|was|were) not (begun|deleted|saved|made|emptied)",
    "^You must (select|type)",
    "(already|no name|no more|full: it holds|has room for|cannot be read|All of them|has no room)",
    "^(Nothing (was|is)|Delete the|Not all of it|These files|These playlists hold|Drop files|Words of|Tag)",
    "There are no|no MIDI settings|were brought in|was brought in|is back\\.|as typed again|in that version",
    "not in both and stayed|empty this number|Some of it went otherwise|merger of the archives|Close all the",
    "^A (category without|song keeps)|names can be given|to begin with|to every page|in the archive "
    "as|display",
    "were not looked at|was not looked at|as it is\\.$|no longer what it was|still there: another|right by "
    "hand",
    "now\\.$|also in your archive|goes on from there|stand has changed|nothing that writes|MIT licence",
};

static QTextBrowser *shownText()
{
    return control<QTextBrowser>("Manual", "Text of the manual");
}

class ManualTest : public WindowTest
{
    Q_OBJECT
private slots:
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
            QStringList parts = sentence.split("…");
            parts.removeIf([](const QString &part) { return part.simplified().size() < 3; });
            return std::all_of(parts.begin(), parts.end(),
                               [&](const QString &part) { return told.contains(part.simplified()); });
        };
        QStringList untold;
        for (QDirIterator files(sources + "/src", {"*.cpp"}, QDir::Files, QDirIterator::Subdirectories);
             files.hasNext();) {
            files.next();
            if (files.fileName().endsWith("_findings.cpp"))
                continue;
            for (const QString &text : sentencesOf(QString::fromUtf8(contents(files.filePath()))))
                if (!text.contains(plain) && !isTold(text))
                    untold += files.fileName() + ": " + text;
        }
        QVERIFY2(untold.isEmpty(), qPrintable(untold.join('\n')));
    }

    void linksAndPictures_resolve()
    {
        Program program;
        chooseMenu("Manual");
        const QTextBrowser *text = shownText();
        QStringList anchors, links, pictures;
        for (QTextBlock block = text->document()->begin(); block.isValid(); block = block.next()) {
            for (const QTextLayout::FormatRange &part : block.textFormats()) {
                anchors += part.format.anchorNames();
                links += part.format.anchorHref();
                pictures += part.format.toImageFormat().name();
            }
        }
        links.removeAll(QString());
        pictures.removeAll(QString());
        QVERIFY(links.size() > 15 && pictures.size() > 7);
        for (const QString &link : links)
            QVERIFY2(link.startsWith('#') && anchors.contains(link.mid(1)), qPrintable(link));
        for (const QString &picture : pictures) {
            QVERIFY2(QFile::exists(sources + "/docs/" + picture), qPrintable(picture));
            QVERIFY2(QFile::exists(":/manual/" + picture), qPrintable(picture));
        }
    }

    void search_goesRoundAndSaysWhatIsNotThere()
    {
        Program program;
        chooseMenu("Manual");
        const QTextBrowser *text = shownText();
        type("Manual", "Search", "BANK select");
        const int first = text->textCursor().position();
        QCOMPARE(text->textCursor().selectedText(), QString("Bank Select"));
        QCOMPARE(textOf("Manual", "found"), QString());
        press("Manual", "Search", Qt::Key_Return);
        QCOMPARE(text->textCursor().position(), first);
        type("Manual", "Search", "saxophone");
        QCOMPARE(textOf("Manual", "found"), QString("Not in the manual"));
        const int place = text->verticalScrollBar()->value();
        press("Manual", "Search", Qt::Key_PageUp);
        QVERIFY(text->verticalScrollBar()->value() < place);
    }
};

QTEST_MAIN(ManualTest)
#include "manual_test.moc"

#pragma once

#include "look/look.h"
#include "main/rooms.h"
#include "support/test_folder.h"

#include <QApplication>
#include <QLineEdit>
#include <QMessageBox>
#include <QMimeData>
#include <QTimer>

using Answer = QMessageBox::StandardButton;
inline constexpr Answer enterKey = Answer::NoButton; // Enter answers, not the mouse

// The window on the screen with that title or objectName; null if there is none.
QWidget *windowNamed(const QString &name);

// Whether a person reads or hears this name at a control: its caption, or its accessible name.
bool isCalled(const QWidget *control, const QString &name);

// The one control of that caption or accessible name in a window that is on the screen, or else of that
// objectName; ends the test run if there is none, or more than one.
template <typename Control = QWidget> Control *control(const QString &window, const QString &name)
{
    QWidget *shown = windowNamed(window);
    if (!shown)
        qFatal("no window %s on the screen", qPrintable(window));
    QList<Control *> found = shown->findChildren<Control *>();
    found.removeIf([&](const Control *each) { return !isCalled(each, name); });
    if (found.isEmpty())
        found = shown->findChildren<Control *>(name);
    if (found.size() != 1)
        qFatal("%d controls %s in the window %s", int(found.size()), qPrintable(name), qPrintable(window));
    return found.first();
}

// The text of a label, a button or a text box.
QString textOf(const QString &window, const QString &name);
// The texts of all rows of a list, those that are ticked with a plus in front.
QStringList shownRows(const QString &window, const QString &list);
// What stands in a cell of a table.
QString cell(const QString &window, const QString &table, int row, int column);

// Waits until the window is the active one, so that keys reach its shortcuts.
void waitUntilActive(const QString &window);

// For all that follows, a window and a control are named as above.
// Real clicks: into the middle of a control, into a row of a list, on a file, on a folder to open it.
// Typing replaces the text of a box. A full disk has so many bytes of room for each file.
void click(const QString &window, const QString &name);
void clickRow(const QString &window, const QString &list, int row, Qt::KeyboardModifiers held = {},
              int right = 60);
void clickCell(const QString &window, const QString &table, int row, int column,
               Qt::KeyboardModifiers held = {});
void clickFile(const QString &window, const QString &file);
void openFolder(const QString &window, const QString &folder);
void type(const QString &window, const QString &box, const QString &text);
void press(const QString &window, const QString &name, Qt::Key key, Qt::KeyboardModifiers held = {});
void clickWithFullDisk(const QString &window, const QString &name, qint64 room = 0);
// Chooses an entry of the main window's menus, by its text or objectName, with clicks on both.
void chooseMenu(const QString &entry);
// Chooses in the menu that the menu key opens in a list or a table, or in a menu of that: the entries of
// these texts, one after the other.
void chooseByMenuKey(const QString &window, const QString &list, const QStringList &entries);
// Chooses in the menu of a text box.
void chooseByRightClick(QWidget *box, const QString &entry);

// Drops what is dragged on a control, with Shift held; what comes of it, "ignore" where it is not taken.
Qt::DropAction drop(QWidget *target, QMimeData &dragged, QPoint at);
void dropFiles(QWidget *target, const QStringList &addresses);

// Writes a picture of one colour in the format of its name.
void putPicture(const QString &path, const QColor &colour);
// Writes the names of the categories: these, and "Rock" for all others.
void putCategories(const QStringList &names = {}, const QString &path = "spartiti/generi.js");

// The settings of a song in midi.js: this row, and the others as they are at first.
QByteArray midiBlock(const QString &number, const QString &firstRow);

// The program on an archive of these bytes, or on none if they are null, with the last record shown. Its
// message boxes are answered by pressing their real buttons, in this order, and those beyond by Esc.
struct Program {
    TestFolder folder;
    QList<Answer> answers;
    QStringList told; // the texts of the boxes so far
    std::function<void()> meanwhile; // happens once, while the next box stands
    QTimer timer;
    Rooms rooms;

    explicit Program(const QByteArray &archive = archiveOf({"One|||0", "Two|||0", "Three|||7"}),
                     const QList<Answer> &ahead = {});
    void answer();
    // Clicks, answers, and gives the texts of the boxes that came, a line end between them.
    QString boxesOf(const QString &window, const QString &button, const QList<Answer> &given = {});
};

// What a test of windows derives from: it has the program's own look.
class WindowTest : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { applyLook(*qApp); }
};

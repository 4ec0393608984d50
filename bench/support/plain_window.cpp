#include "support/plain_window.h"

#include "look/look.h"

#include <QApplication>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QScrollBar>

static void put(QWidget *control, const QFont &font, QRect place)
{
    control->setFont(font);
    control->setGeometry(place);
}

static void addBox(QWidget *window, const QString &text, const QFont &font, QRect place)
{
    auto *box = new QLineEdit(text, window);
    box->setFrame(false);
    put(box, font, place);
}

static void addButton(QWidget *window, const QString &text, QRect place)
{
    put(new QPushButton(text, window), verdana(12), place);
}

static void addFields(QWidget *window)
{
    const QFont font = italic(verdana(14.25));
    addBox(window, "A title of usual length", font, {8, 32, 681, 33});
    addBox(window, "Some author", font, {8, 96, 681, 33});
    addBox(window, "two tags", font, {8, 160, 681, 33});
    addBox(window, "9999", verdana(24), {8, 208, 681, 41});
    for (const int y : {72, 136, 200}) {
        auto *line = new QFrame(window);
        line->setFrameStyle(QFrame::HLine | QFrame::Plain);
        line->setGeometry(8, y, 680, 1);
    }
}

static void addButtons(QWidget *window)
{
    addButton(window, "Left", {8, 544, 329, 33});
    addButton(window, "Right", {360, 544, 329, 33});
    addButton(window, "Mp3", {8, 584, 73, 57});
    addButton(window, "Save", {536, 584, 73, 57});
    addButton(window, "Add", {616, 584, 73, 57});
    put(new QLabel("There are 9999 titles", window), verdana(15.75), {160, 600, 369, 41});
    auto *bar = new QScrollBar(Qt::Vertical, window);
    bar->setRange(1, 9999);
    bar->setValue(9999);
    bar->setGeometry(696, 32, 33, 609);
}

static void addMenu(QMenu *menu, const QStringList &entries)
{
    for (const QString &entry : entries)
        menu->addAction(entry);
}

void applyPlainLook()
{
    QApplication::setStyle("Fusion");
    QPalette colours(faceColour, Qt::white);
    colours.setColor(QPalette::Text, lineColour);
    colours.setColor(QPalette::WindowText, lineColour);
    colours.setColor(QPalette::ButtonText, lineColour);
    QApplication::setPalette(colours);
    QApplication::setFont(verdana(12));
}

PlainWindow::PlainWindow()
{
    setWindowTitle("Tessaline 5.0");
    setFixedSize(734, 648);
    auto *menus = new QMenuBar(this);
    addMenu(menus->addMenu("Work"), {"Playlist Manager", "Midi device", "Merging", "Exit"});
    addMenu(menus->addMenu("Edit"), {"Undo", "Redo", "Find a song…"});
    addMenu(
        menus->addMenu("Archive"),
        {"Bring in songs…", "Categories…", "Earlier versions…", "Check the archive…", "Copy to the stand…"});
    addMenu(menus->addMenu("Help"), {"Manual", "About Tessaline"});
    menus->setGeometry(0, 0, 734, 24);
    addFields(this);
    addButtons(this);
}

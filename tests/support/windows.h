#pragma once

#include "support/test_folder.h"

#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <QWidget>

// The window of that objectName that is on the screen; null if there is none.
QWidget *windowNamed(const QString &name);

// The control of that objectName in a window that is on the screen; ends the test run if there is none.
template <typename Control = QWidget> Control *control(const QString &window, const QString &name)
{
    QWidget *shown = windowNamed(window);
    auto *found = shown ? shown->findChild<Control *>(name) : nullptr;
    if (!found)
        qFatal("no control %s in a window %s on the screen", qPrintable(name), qPrintable(window));
    return found;
}

// Waits until the window of that objectName is the active one, so that keys reach its shortcuts.
void waitUntilActive(const QString &window);

// A real click into the middle of a control.
void click(const QString &window, const QString &name);

// Chooses an entry of the main window's menu by its objectName.
void chooseMenu(const QString &entry);

// Answers the message boxes that appear while it lives by pressing their real buttons, in this order;
// boxes beyond the answers get their first button.
class BoxAnswers
{
public:
    explicit BoxAnswers(QList<QMessageBox::StandardButton> answers = {});

    QStringList texts; // of the boxes so far
    QStringList titles;

private:
    void answer();

    QList<QMessageBox::StandardButton> answers_;
    QTimer timer_;
};

// main() of a window test: the program's own look, then all tests of `test`.
int runWindowTest(QObject &test, int argc, char **argv);

#define WINDOW_TEST_MAIN(Test)                                                                               \
    int main(int argc, char **argv)                                                                          \
    {                                                                                                        \
        Test test;                                                                                           \
        return runWindowTest(test, argc, argv);                                                              \
    }

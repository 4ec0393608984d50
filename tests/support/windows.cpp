#include "support/windows.h"

#include "controls/look.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>

QWidget *windowNamed(const QString &name)
{
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (window->objectName() == name && window->isVisible())
            return window;
    }
    return nullptr;
}

void waitUntilActive(const QString &window)
{
    QWidget *shown = windowNamed(window);
    if (shown)
        shown->activateWindow(); // the offscreen platform hands nothing back when a box closes
    if (!shown || !QTest::qWaitForWindowActive(shown))
        qFatal("the window %s does not become active", qPrintable(window));
}

void click(const QString &window, const QString &name)
{
    QTest::mouseClick(control(window, name), Qt::LeftButton);
}

void chooseMenu(const QString &entry)
{
    control<QAction>("Form1", entry)->trigger();
}

BoxAnswers::BoxAnswers(QList<QMessageBox::StandardButton> answers)
    : answers_(std::move(answers))
{
    QObject::connect(&timer_, &QTimer::timeout, [this] { answer(); });
    timer_.start(5);
}

void BoxAnswers::answer()
{
    auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
    if (!box || !box->isVisible())
        return;
    texts += box->text();
    titles += box->windowTitle();
    QAbstractButton *button =
        answers_.isEmpty() ? box->buttons().constFirst() : box->button(answers_.takeFirst());
    if (!button)
        qFatal("the box \"%s\" has no such button", qPrintable(box->text()));
    QTest::mouseClick(button, Qt::LeftButton);
}

int runWindowTest(QObject &test, int argc, char **argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    applyLook(app);
    return QTest::qExec(&test, argc, argv);
}

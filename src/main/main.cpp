#include "files/platform.h"
#include "look/look.h"
#include "main/rooms.h"
#include "window/message_box.h"
#include "window/small_screen.h"

#include <QApplication>
#include <QDir>

#include <cstdio>
#include <cstdlib>
#include <memory>

// Says in words what Qt would abort for: an application without a display.
static void endWithoutDisplay(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (type != QtFatalMsg) {
        std::fputs(qPrintable(qFormatLogMessage(type, context, text) + '\n'), stderr);
        return;
    }
    std::fputs(
        "Tessaline cannot start: there is no display for its windows. Start it in a desktop session.\n",
        stderr);
    std::fflush(stderr);
    std::_Exit(EXIT_FAILURE);
}

// False where there is none, which a person has been told.
static bool goToWorkingFolder()
{
    const QString better = betterWorkingFolder();
    if (better.isEmpty() || (QDir().mkpath(better) && QDir::setCurrent(better)))
        return true;
    messageBox("Tessaline cannot start: its folder " + QDir::toNativeSeparators(better)
               + " cannot be made or entered. Start it in a folder of your own.");
    return false;
}

int main(int argc, char **argv)
{
    qInstallMessageHandler(endWithoutDisplay);
    auto app = std::make_unique<QApplication>(argc, argv);
    qInstallMessageHandler(nullptr);
    if (fitSmallScreen()) {
        app.reset();
        app = std::make_unique<QApplication>(argc, argv);
    }
    applyLook(*app);
    if (!goToWorkingFolder())
        return EXIT_FAILURE;
    Rooms rooms;
    rooms.start();
    return QApplication::exec();
}

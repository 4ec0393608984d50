#include "look/look.h"
#include "main/rooms.h"
#include "window/small_screen.h"

#include <QApplication>

#include <cstdio>
#include <cstdlib>
#include <memory>

// Says in words what Qt would abort for: an application without a display.
static void endWithoutDisplay(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (type != QtFatalMsg) {
        std::fprintf(stderr, "%s\n", qPrintable(qFormatLogMessage(type, context, text)));
        return;
    }
    std::fputs(
        "Tessaline cannot start: there is no display for its windows. Start it in a desktop session.\n",
        stderr);
    std::fflush(stderr);
    std::_Exit(EXIT_FAILURE);
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
    Rooms rooms;
    rooms.start();
    return QApplication::exec();
}

#include "look/look.h"
#include "main/rooms.h"
#include "window/small_screen.h"

#include <QApplication>

#include <memory>

int main(int argc, char **argv)
{
    auto app = std::make_unique<QApplication>(argc, argv);
    if (fitSmallScreen()) {
        app.reset();
        app = std::make_unique<QApplication>(argc, argv);
    }
    applyLook(*app);
    Rooms rooms;
    rooms.form1.show();
    return QApplication::exec();
}

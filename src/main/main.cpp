#include "controls/look.h"
#include "controls/small_screen.h"
#include "main/Form1.h"

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
    Form1 form1;
    merging::reopenMainWindow = [&form1] {
        form1.unload();
        form1.show();
    };
    form1.show();
    return QApplication::exec();
}

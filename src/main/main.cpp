#include "controls/look.h"
#include "main/Form1.h"

#include <QApplication>

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    applyLook(app);
    Form1 form1;
    merging::reopenMainWindow = [&form1] {
        form1.unload();
        form1.show();
    };
    form1.show();
    return QApplication::exec();
}

#include "help/about.h"

#include <QDir>

QString aboutText()
{
    return QStringLiteral("Tessaline %1, for the archive of an electronic music stand.\n\n"
                          "MIT licence. It uses Qt %2, under the LGPL.\n\n"
                          "The folder in use is\n%3")
        .arg(TESSALINE_VERSION, qVersion(), QDir::toNativeSeparators(QDir::currentPath()));
}

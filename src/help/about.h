#pragma once

#include <QString>

// What "About Tessaline" says: name, version, Qt's version, licence, the folder in use.
QString aboutText();

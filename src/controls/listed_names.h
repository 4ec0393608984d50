#pragma once

#include <QDir>
#include <QStringList>

// The names in a folder in the order that a person expects: without regard to case, accented letters
// beside their base letter, "page 9" before "page 10". `pattern` is matched without regard to case.
QStringList listedNames(const QString &folder, QDir::Filters kinds, const QString &pattern = "*");

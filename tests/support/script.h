#pragma once

#include <QString>
#include <QStringList>

// A data file as the viewer's browser has it: run as a script by node, whose array `name` is then read.
class Script
{
public:
    Script(const QString &path, const QString &name);

    bool unavailable() const { return unavailable_; } // there is no node on this machine
    QStringList strings() const { return strings_; } // "(error) ..." where the script does not run

private:
    bool unavailable_ = false;
    QStringList strings_;
};

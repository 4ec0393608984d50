#include "support/script.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>
#include <QVariant>

static const char program[] = "const fs = require('fs'), vm = require('vm');"
                              "const [path, name] = process.argv.slice(1);"
                              "const text = new TextDecoder('windows-1252').decode(fs.readFileSync(path));"
                              "const context = vm.createContext({});"
                              "vm.runInContext(text, context);"
                              "process.stdout.write(JSON.stringify(context[name]));";

Script::Script(const QString &path, const QString &name)
{
    QProcess node;
    node.start("node", {"-e", program, path, name});
    unavailable_ = !node.waitForStarted();
    if (unavailable_)
        return;
    node.waitForFinished();
    const QByteArray error = node.readAllStandardError();
    if (!error.isEmpty())
        strings_ = {"(error) " + QString::fromUtf8(error)};
    for (const QJsonValue &value : QJsonDocument::fromJson(node.readAllStandardOutput()).array())
        strings_ += value.toString();
}

#include "files/data_folder.h"

#include "files/result.h"

#include <QDir>

static QString inDataFolder(const QString &name, const QString &root = ".")
{
    return root + "/spartiti/" + name;
}

QString archivePath(const QString &root)
{
    return inDataFolder("archivio.js", root);
}

QString categoriesPath()
{
    return inDataFolder("generi.js");
}

QString playlistPath()
{
    return inDataFolder("playlist.js");
}

QString midiPath()
{
    return inDataFolder("midi.js");
}

QString csvPath()
{
    return inDataFolder("ARCHIVIO.CSV");
}

QString emptyPagePath()
{
    return inDataFolder("m.jpg");
}

QString pagePath(int record, Page page, const QString &root)
{
    const QString side = page == Page::Left ? "L.jpg" : "R.jpg";
    return inDataFolder(QString::number(record) + side, root);
}

QString recordingPath(int record)
{
    return inDataFolder("audio/" + QString::number(record) + ".mp3");
}

QString shownPath(const QString &path)
{
    return QDir::toNativeSeparators(QDir::cleanPath(path));
}

Result Result::failed(Kind kind, const QString &path, const QString &reason)
{
    return {kind, shownPath(path), reason};
}

QString Result::text() const
{
    return file + ": " + reason;
}

QString Result::refusal() const
{
    const QString what = kind == Kind::Unreadable
        ? QStringLiteral("%1 cannot be read (%2).").arg(file, reason)
        : QStringLiteral("%1 %2 and was not read.").arg(file, reason);
    return what + " It is left as it is.";
}

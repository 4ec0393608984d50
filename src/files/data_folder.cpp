#include "files/data_folder.h"

#include <QDir>

QString dataFolder(const QString &root)
{
    return root + "/spartiti";
}

static QString inDataFolder(const QString &name, const QString &root = ".")
{
    return dataFolder(root) + '/' + name;
}

QString archivePath(const QString &root)
{
    return inDataFolder("archivio.js", root);
}

QString categoriesPath(const QString &root)
{
    return inDataFolder("generi.js", root);
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

static QString pageName(int record, Page page)
{
    return QString::number(record) + (page == Page::Left ? 'L' : 'R');
}

QString pagePath(int record, Page page, const QString &root)
{
    return inDataFolder(pageName(record, page) + ".jpg", root);
}

QString oldPagePath(int record, Page page, int attempt)
{
    const auto name = QStringLiteral("%1 (old %2).jpg");
    return inDataFolder(name.arg(pageName(record, page)).arg(attempt));
}

QString recordingPath(int record)
{
    return inDataFolder("audio/" + QString::number(record) + ".mp3");
}

QString arrivingPath(const QString &name)
{
    return inDataFolder("arriving/" + name);
}

QString shownPath(const QString &path)
{
    return QDir::toNativeSeparators(QDir::cleanPath(path));
}

#include "files/data_folder.h"

#include <QDir>

#include <algorithm>

QString dataFolder(const QString &root)
{
    return root + "/spartiti";
}

QString dataFile(const QString &name, const QString &root)
{
    return dataFolder(root) + '/' + name;
}

QString recordingsFolder()
{
    return dataFile("audio");
}

QString archivePath(const QString &root)
{
    return dataFile("archivio.js", root);
}

QString categoriesPath(const QString &root)
{
    return dataFile("generi.js", root);
}

QString playlistPath()
{
    return dataFile("playlist.js");
}

QString midiPath()
{
    return dataFile("midi.js");
}

QString csvPath()
{
    return dataFile("ARCHIVIO.CSV");
}

QString emptyPagePath()
{
    return dataFile("m.jpg");
}

static QString pageName(int record, Page page)
{
    return QString::number(record) + (page == Page::Left ? 'L' : 'R');
}

QString pagePath(int record, Page page, const QString &root)
{
    return dataFile(pageName(record, page) + ".jpg", root);
}

QString oldPagePath(int record, Page page, int attempt)
{
    const auto name = QStringLiteral("%1 (old %2).jpg");
    return dataFile(name.arg(pageName(record, page)).arg(attempt));
}

QString recordingPath(int record)
{
    return dataFile("audio/" + QString::number(record) + ".mp3");
}

QString arrivingPath(const QString &name)
{
    return dataFile("arriving/" + name);
}

// The number of a name that is a number as people write it, and this ending; 0 if it is none.
static int numberBefore(QStringView ending, QStringView name)
{
    const QStringView digits = name.chopped(qMin(ending.size(), name.size()));
    const bool isPlain = name.endsWith(ending) && !digits.isEmpty() && digits[0] != u'0'
        && std::all_of(digits.begin(), digits.end(),
                       [](QChar digit) { return digit >= u'0' && digit <= u'9'; });
    return isPlain ? digits.toInt() : 0;
}

std::optional<PageOfRecord> pageOfName(QStringView name)
{
    if (const int record = numberBefore(u"L.jpg", name))
        return PageOfRecord{record, Page::Left};
    if (const int record = numberBefore(u"R.jpg", name))
        return PageOfRecord{record, Page::Right};
    return {};
}

int recordOfRecording(QStringView name)
{
    return numberBefore(u".mp3", name);
}

QString shownPath(const QString &path)
{
    return QDir::toNativeSeparators(QDir::cleanPath(path));
}

#include "support/test_folder.h"

#include "archive/Module1.h"
#include "format/code_page.h"

#include <QBuffer>
#include <QDirIterator>
#include <QFileInfo>

#include <numeric>

TestFolder::TestFolder()
    : before_(QDir::currentPath())
{
    QDir::setCurrent(folder_.path());
    Module1 = {};
}

TestFolder::~TestFolder()
{
    QDir::setCurrent(before_);
}

QByteArray encoded(const QImage &picture, const char *format, int quality)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, format, quality);
    return buffer.data();
}

void put(const QString &path, const QByteArray &bytes)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(path));
}

QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(missing)");
}

QStringList namesIn(const QString &folder)
{
    const auto all = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
    return QDir(folder).entryList(all, QDir::Name);
}

QStringList filesBelow(const QString &folder)
{
    QStringList files;
    const auto all = QDir::Files | QDir::Hidden;
    for (QDirIterator entries(folder, all, QDirIterator::Subdirectories); entries.hasNext();) {
        const QString path = entries.next();
        files += path.mid(folder.size() + 1) + ": " + QString::fromLatin1(contents(path));
    }
    files.sort();
    return files;
}

QByteArray linesOf(const QString &fields)
{
    return '"' + toCodePage(fields).replace("|", "\",\r\n\"") + "\",\r\n";
}

QByteArray fileOf(const QByteArray &array, const QByteArray &lines)
{
    return "var " + array + " = [\r\n" + lines + " ];\r\n";
}

QByteArray everyByte()
{
    QByteArray bytes(256, '\0');
    std::iota(bytes.begin(), bytes.end(), '\0');
    return bytes.replace("\"", "");
}

QByteArray archiveOf(const QStringList &records)
{
    QByteArray lines;
    for (qsizetype i = 0; i < records.size(); i += 1)
        lines += linesOf(QString::number(i + 1) + '|' + records[i]);
    return fileOf("archivio", lines);
}

void putArchive(const QStringList &records)
{
    put("spartiti/archivio.js", archiveOf(records));
}

QStringList recordsInMemory(int behind)
{
    QStringList records;
    for (size_t n = 1; n <= static_cast<size_t>(Module1.recCount + behind); n += 1) {
        const QStringList fields = {Module1.recTitle[n], Module1.recAuthor[n], Module1.recTags[n],
                                    Module1.recCategory[n]};
        records += fields.join('|');
    }
    return records;
}

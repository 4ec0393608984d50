#include "support/test_folder.h"

#include "archive/Module1.h"
#include "format/code_page.h"

#include <QBuffer>
#include <QDirIterator>
#include <QFileInfo>

#include <filesystem>
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

static const auto everything = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;

QStringList namesIn(const QString &folder)
{
    return QDir(folder).entryList(everything, QDir::Name);
}

QMap<QString, QByteArray> bytesBelow(const QString &folder)
{
    QMap<QString, QByteArray> bytes;
    for (QDirIterator entries(folder, everything, QDirIterator::Subdirectories); entries.hasNext();) {
        const QFileInfo entry(entries.next());
        const QString path = entry.filePath().mid(folder.size() + 1);
        if (entry.isSymLink())
            bytes[path] =
                "-> " + QByteArray::fromStdString(read_symlink(entry.filesystemFilePath()).string());
        else if (!entry.isDir())
            bytes[path] = entry.isFile() ? contents(entry.filePath()) : QByteArray("no file");
    }
    return bytes;
}

QStringList filesBelow(const QString &folder)
{
    QStringList files;
    for (const auto &[path, bytes] : bytesBelow(folder).asKeyValueRange())
        files += path + ": " + QString::fromLatin1(bytes);
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

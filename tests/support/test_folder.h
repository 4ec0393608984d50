#pragma once

#include "files/result.h"
#include "support/table.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QMap>
#include <QObject>
#include <QTemporaryDir>

#include <optional>

// A fresh folder that is the working directory, with a fresh Module1, for as long as the object lives.
class TestFolder
{
public:
    TestFolder();
    ~TestFolder();

private:
    QString before_;
    QTemporaryDir folder_;
};

// A test whose functions and rows each begin in such a folder.
class FolderTest : public QObject
{
    Q_OBJECT
private slots:
    void init() { folder_.emplace(); }
    void cleanup() { folder_.reset(); }

private:
    std::optional<TestFolder> folder_;
};

// The bytes of a picture file; empty where Qt here cannot write the format.
QByteArray encoded(const QImage &picture, const char *format, int quality = -1);

// Writes a file, making its folder where it is missing.
void put(const QString &path, const QByteArray &bytes);
// What a file holds; "(missing)" where there is none.
QByteArray contents(const QString &path);
// The names in a folder, hidden ones too, sorted.
QStringList namesIn(const QString &folder);

// All that lies below a folder, hidden things too, by its path: what a file holds, where a link points to, or
// "no file".
QMap<QString, QByteArray> bytesBelow(const QString &folder);
// The same, each "path: bytes", in the order of their paths.
QStringList filesBelow(const QString &folder);

// All bytes that a field can hold: 256 but for the double quote.
QByteArray everyByte();

// The lines of a data file for these fields, "one|next|...", each in its quotes on a line of its own.
QByteArray linesOf(const QString &fields);
// A data file of these lines.
QByteArray fileOf(const QByteArray &array, const QByteArray &lines);
// An archive file of these records, each "title|author|tags|category".
QByteArray archiveOf(const QStringList &records);
// Writes spartiti/archivio.js of these records.
void putArchive(const QStringList &records);
// The records of Module1 in the same way, and as many of those behind them.
QStringList recordsInMemory(int behind = 0);

// While it lives no file of the process grows beyond so many bytes: a full disk, for any user. A limit
// of 0 lets nothing be written.
class FullDisk
{
public:
    explicit FullDisk(qint64 bytes);
    ~FullDisk();
    static QString reason(); // the system's words for it

private:
    const qint64 before_;
};

// A link of the system's own kind; false where a plain program can make none.
bool putLink(const QString &to, const QString &path);
// Makes a thing that is no file and no folder and lets a reader wait, or a folder where the system has no
// such things.
bool putPipe(const QString &path);

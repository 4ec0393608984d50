#pragma once

#include <QString>

#include <filesystem>

class QProcess;

// The calls that each operating system has its own name for. Nothing outside this file and its two .cpp, one
// for Windows and one for all others, may ask which system it runs on.

// Waits until what was written to the open file is on the disk itself. False with errno set where the
// system says that it could not be done.
bool syncFile(int handle);

// Lets the system begin to put what was written to the open file on the disk, so that a later sync has
// less to wait for. A hint, no promise.
void beginSync(int handle);

// Lets the system forget what it holds in memory of a file whose contents are on the disk, so that what is
// read next comes from the disk itself. A hint, no promise.
void forgetCached(int handle);

// Waits until everything written so far to the file system of the open file is on the disk itself. False
// where the system has no such call or it failed; then only syncFile() can tell which file is safe.
bool syncFileSystem(int handle);

// As syncFile(), for the entries of a folder, so that a renamed file keeps its new name after a power cut.
// Some file systems cannot; that is no failure, since the rename itself is done.
void syncFolder(const QString &folder);

// Puts a file, or a link itself, in place of whatever bears that name, on one disk and in one step. False
// with errno set where that cannot be done. Where another program can hold a file so that nothing takes its
// place, it is tried for up to two seconds.
bool renameOver(const QString &from, const QString &to);

// Gives a file another name, on one disk and in one step. False with errno set where that cannot be done;
// EEXIST where something bears the name already, which stays as it is.
bool renameOverNothing(const QString &from, const QString &to);

// True only where the system says that nothing bears this name. A path that cannot be looked at, since a
// folder on the way refuses it or the disk fails, may well lead to something.
bool isMissing(const QString &path);

// As isMissing(), but a link to nothing is something.
bool isNothingThere(const QString &path);

// Of a program that is to be started: it gets no more memory than this, in bytes, where the system can see
// to that.
void limitMemory(QProcess &process, qint64 bytes);

// The size in bytes of an ordinary file and the time of its last change, in milliseconds since 1970, by one
// question to the system; of a link, those of the file that it points to. Size -1 for what is no such file or
// cannot be looked at.
struct FileState {
    qint64 size = -1;
    qint64 time = 0;
};
FileState stateOfFile(const std::filesystem::path &path);

// Why the entries of a folder cannot be listed, in the system's words; empty where they can.
QString obstacleTo(const QString &folder);

// Whether the system takes no file of this name, given without a folder, or only one that its own programs
// cannot open.
bool isForbiddenName(const QString &name);

// What a person has called the drive of this letter ("E:/"); empty where it has no name, no medium, or drives
// have no letters.
QString driveName(const QString &drive);

// Where the program is to work, though it may have to make that folder first, since the working directory is
// nobody's choice but that of a double click: the program's own folder, or the system's. Else empty.
QString betterWorkingFolder();

// The system's words for the present errno.
QString systemReason();

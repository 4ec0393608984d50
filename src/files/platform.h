#pragma once

#include <QString>

// The calls that each operating system has its own name for. Nothing outside this file and its .cpp
// may ask which system it runs on.

// Waits until what was written to the open file is on the disk itself. False with errno set where the
// system says that it could not be done.
bool syncFile(int handle);

// The same for the entries of a folder, so that a renamed file keeps its new name after a power cut.
// Some file systems cannot; that is no failure, since the rename itself is done.
void syncFolder(const QString &folder);

// True only where the system says that nothing bears this name. A path that cannot be looked at, since a
// folder on the way refuses it or the disk fails, may well lead to something.
bool isMissing(const QString &path);

// The system's words for the present errno.
QString systemReason();

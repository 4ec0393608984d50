#pragma once

class QLockFile;

// Takes the lock at once, however old its file is, unless a program that is running holds it. False with
// LockFailedError where one does, with another error where no lock can be had there.
bool takeLock(QLockFile &lock);

#pragma once

#include <QByteArray>

#include <cstdlib>

// The one file of a fuzz run, whatever its path: it is linked in place of files/safe_write.h.
inline QByteArray memoryFile;

// A property that does not hold ends the run, and libFuzzer keeps the input.
inline void require(bool property)
{
    if (!property)
        std::abort();
}

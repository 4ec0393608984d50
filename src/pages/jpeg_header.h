#pragma once

#include <QIODevice>

// A look into the head of a JPEG, without decoding it.

// How many bytes the decoder must hold at once, at whatever size it decodes, because the picture comes in
// several scans (a progressive JPEG does): two for each sample. 0 for one scan, and for what is no JPEG.
// Reads from the beginning of the file, and leaves it there.
qint64 bytesForScans(QIODevice &file);

#pragma once

#include <QIODevice>

// A look into the head of a JPEG, without decoding it.

// How many bytes the decoder must hold at once, at whatever size it decodes, because the picture comes in
// several scans (a progressive JPEG does): two for each sample. 0 for one scan, and for what is no JPEG.
// Reads from the beginning of the file, and leaves it there.
qint64 bytesForScans(QIODevice &file);

// Whether the first bytes of a file are those of a JPEG in one of the usual ways of coding, of at most
// `mostPixels`. False also where they do not tell, as behind much other data.
bool beginsJpeg(QByteArrayView head, qint64 mostPixels);

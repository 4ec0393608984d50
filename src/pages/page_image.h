#pragma once

#include <QImage>

// Decodes a picture for a frame of `frame` device pixels, stretched to it and turned as its EXIF data
// says; a large JPEG is decoded at reduced scale, so that time and memory stay those of the frame. A null
// image where the file is no picture, or claims more than 100 million pixels, which no page needs, or is a
// JPEG in several scans (progressive) that the decoder would need more than 210 MB for: one in full colour
// of more than 35 million pixels, in the usual reduced colour of more than 70 million.
// A JPEG that ends too early shows what could be decoded of it.
QImage decodePage(const QString &path, QSize frame);

// Whether decodePage() gives a picture, as far as the beginning of the file tells.
bool canBeShown(const QString &path);

// How large the picture is, turned as its EXIF data says; empty where the file is none.
QSize pageSize(const QString &path);

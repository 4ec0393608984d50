#pragma once

#include <QImage>

// Decodes a picture for a frame of `frame` device pixels, stretched to it and turned as its EXIF data
// says; a large JPEG is decoded at reduced scale, so that time and memory stay those of the frame. A null
// image where the file is no picture or claims more than 100 million pixels, which no page needs.
// A JPEG that ends too early shows what could be decoded of it.
QImage decodePage(const QString &path, QSize frame);

#pragma once

#include "files/result.h"
#include "intake/coming_song.h"

#include <QImage>

// Pictures of all kinds that Qt's installed plugins read, made into pages. A page may have 40 million pixels,
// an A4 sheet of 600 dots per inch and a little more, and takes 300 MB at most while it is made.

// What the head of a file tells.
struct PictureHead {
    Result result; // why it is no picture that can be a page
    bool isJpeg = false;
};
PictureHead headOf(const QString &file);

// True of a JPEG whose end is missing. What there is of it can be shown.
bool isCutShort(const QString &file);

// The file in full, turned as its EXIF data says.
Result readPicture(const QString &file, QImage &picture);

// The same from the bytes of a picture.
Result readPicture(const QByteArray &bytes, const QString &file, QImage &picture);

// The picture turned and halved as the page says.
QImage shaped(QImage picture, const ComingPage &page);

// A JPEG of quality 92, on white.
Result encodePage(QImage picture, const QString &file, QByteArray &bytes);

// A picture of the page that fits into `room`, for looking at; null where it cannot be shown. Not of a PDF.
QImage smallPicture(const ComingPage &page, QSize room);

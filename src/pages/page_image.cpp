#include "pages/page_image.h"

#include "files/safe_write.h"
#include "pages/jpeg_header.h"

#include <QFile>
#include <QFileInfo>
#include <QImageReader>

static constexpr qint64 mostPixels = 100'000'000;
// Room for an A4 page of 600 dots per inch in full colour.
static constexpr qint64 mostBytesForScans = 210'000'000;

// The decoder reduces by 2, 4 or 8 at little cost; the result is at least nine tenths of what is wanted.
static QSize reducedSize(QSize full, QSize wanted)
{
    int reduction = 8;
    while (reduction > 1
           && (full.width() / reduction * 10 < wanted.width() * 9
               || full.height() / reduction * 10 < wanted.height() * 9))
        reduction /= 2;
    // Rounded down: asked for one pixel more, the decoder would take the next larger scale.
    return {full.width() / reduction, full.height() / reduction};
}

static bool isOnItsSide(const QImageReader &reader)
{
    return reader.transformation().testFlag(QImageIOHandler::TransformationRotate90);
}

QSize pageSize(const QString &path)
{
    QFile file(path);
    if (!openToRead(file).ok())
        return {};
    QImageReader reader(&file);
    reader.setDecideFormatFromContent(true);
    const QSize size = reader.size();
    return isOnItsSide(reader) ? size.transposed() : size;
}

// One that is neither absurdly large nor needs too much memory.
static bool isPage(QFile &file, QImageReader &reader)
{
    if (bytesForScans(file) > mostBytesForScans)
        return false;
    reader.setDevice(&file);
    reader.setDecideFormatFromContent(true);
    const QSize full = reader.size();
    return !full.isEmpty() && qint64{full.width()} * full.height() <= mostPixels;
}

// Nearly every page is known by its first bytes, whatever its coding.
static bool isPlainPage(const QString &path)
{
    static constexpr qint64 headSize = 4096, bytesPerPixel = 3 * 2;
    QFile file(path);
    return file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)
        && beginsJpeg(file.read(headSize), mostBytesForScans / bytesPerPixel);
}

bool canBeShown(const QString &path)
{
    if (!QFileInfo(path).isFile())
        return false;
    QFile file(path);
    QImageReader reader;
    return isPlainPage(path) || (openToRead(file).ok() && isPage(file, reader));
}

QImage decodePage(const QString &path, QSize frame)
{
    QFile file(path);
    QImageReader reader;
    if (!openToRead(file).ok() || !isPage(file, reader))
        return {};
    reader.setAutoTransform(true);
    const QSize full = reader.size();
    const QSize reduced = reducedSize(full, isOnItsSide(reader) ? frame.transposed() : frame);
    if (reduced != full)
        reader.setScaledSize(reduced);
    return reader.read().scaled(frame, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

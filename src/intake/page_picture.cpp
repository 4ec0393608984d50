#include "intake/page_picture.h"

#include "files/safe_write.h"
#include "pages/jpeg_header.h"
#include "pages/page_image.h"

#include <QBuffer>
#include <QFile>
#include <QImageReader>
#include <QPainter>
#include <QTransform>

using Kind = Result::Kind;

static constexpr qint64 mostPixels = 40'000'000;
static constexpr int mostMegabytes = 300;

// Qt's own limit for a picture is less than an A4 sheet of 600 dots per inch needs.
struct AllocationLimit {
    const int before = QImageReader::allocationLimit();

    AllocationLimit() { QImageReader::setAllocationLimit(mostMegabytes); }
    ~AllocationLimit() { QImageReader::setAllocationLimit(before); }
    Q_DISABLE_COPY_MOVE(AllocationLimit)
};

static Result noPicture(const QString &file, const QString &reason)
{
    return Result::failed(Kind::Unreadable, file, reason);
}

static Result checkHead(QImageReader &reader, const QString &file)
{
    if (!reader.canRead())
        return noPicture(file, "it is not a picture, or not of a kind that is understood here");
    const QSize size = reader.size();
    if (size.isEmpty() && reader.supportsOption(QImageIOHandler::Size))
        return noPicture(file, "it is broken");
    if (qint64{size.width()} * size.height() > mostPixels)
        return noPicture(file,
                         QStringLiteral("it has %1 by %2 pixels, more than a page may have")
                             .arg(size.width())
                             .arg(size.height()));
    return {};
}

static Result checkFile(QFile &file)
{
    static constexpr qint64 mostBytesForScans = 200'000'000;
    if (const Result opened = openToRead(file); !opened.ok())
        return opened;
    if (file.size() == 0)
        return noPicture(file.fileName(), "it is empty");
    if (bytesForScans(file) > mostBytesForScans)
        return noPicture(file.fileName(), "it is a progressive JPEG too large for a page");
    return {};
}

PictureHead headOf(const QString &path)
{
    QFile file(path);
    if (const Result checked = checkFile(file); !checked.ok())
        return {checked};
    QImageReader reader(&file);
    reader.setDecideFormatFromContent(true);
    return {checkHead(reader, path), reader.format() == "jpeg"};
}

bool isCutShort(const QString &path)
{
    static constexpr qint64 tail = 1 << 16;
    QFile file(path);
    if (!openToRead(file).ok() || file.peek(2) != "\xFF\xD8"
        || !file.seek(qMax(qint64{0}, file.size() - tail)))
        return false;
    return !file.read(tail).contains("\xFF\xD9");
}

static Result readFrom(QIODevice &device, const QString &file, QImage &picture)
{
    const AllocationLimit limit;
    QImageReader reader(&device);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    if (const Result checked = checkHead(reader, file); !checked.ok())
        return checked;
    picture = reader.read();
    if (picture.isNull())
        return noPicture(file, "it is broken");
    if (qint64{picture.width()} * picture.height() > mostPixels)
        return noPicture(file, "it has more pixels than a page may have");
    return {};
}

Result readPicture(const QString &path, QImage &picture)
{
    QFile file(path);
    const Result checked = checkFile(file);
    return checked.ok() ? readFrom(file, path, picture) : checked;
}

Result readPicture(const QByteArray &bytes, const QString &file, QImage &picture)
{
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    return readFrom(buffer, file, picture);
}

static QImage turned(QImage picture, int quarters)
{
    return quarters % 4 == 0 ? picture : picture.transformed(QTransform().rotate(90.0 * quarters));
}

QImage shaped(QImage picture, const ComingPage &page)
{
    picture = turned(std::move(picture), page.turns);
    const int half = (picture.width() + 1) / 2;
    if (page.part == ComingPage::LeftHalf)
        picture = picture.copy(0, 0, half, picture.height());
    else if (page.part == ComingPage::RightHalf)
        picture = picture.copy(picture.width() - half, 0, half, picture.height());
    return turned(std::move(picture), page.turnsOfPart);
}

static QImage onWhite(const QImage &picture)
{
    QImage sheet(picture.size(), QImage::Format_RGB32);
    sheet.setDotsPerMeterX(picture.dotsPerMeterX());
    sheet.setDotsPerMeterY(picture.dotsPerMeterY());
    sheet.fill(Qt::white);
    QPainter(&sheet).drawImage(0, 0, picture);
    return sheet;
}

Result encodePage(QImage picture, const QString &file, QByteArray &bytes)
{
    static constexpr int quality = 92;
    const bool isGrey = !picture.hasAlphaChannel() && picture.depth() <= 16 && picture.allGray();
    const auto format = isGrey ? QImage::Format_Grayscale8 : QImage::Format_RGB32;
    picture = picture.hasAlphaChannel() ? onWhite(picture) : picture.convertToFormat(format);
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (!picture.save(&buffer, "jpg", quality))
        return noPicture(file, "it cannot be made into a JPEG");
    return {};
}

// What is to be read of the file so that the page fills the room.
static QSize sizeToRead(const ComingPage &page, QSize room, QSize full)
{
    QSize sheet = room;
    if (page.turnsOfPart % 2 != 0)
        sheet.transpose();
    if (page.part != ComingPage::Whole)
        sheet.rwidth() *= 2;
    if (page.turns % 2 != 0)
        sheet.transpose();
    return full.scaled(sheet, Qt::KeepAspectRatio);
}

QImage smallPicture(const ComingPage &page, QSize room)
{
    QImage picture;
    const QSize wanted = sizeToRead(page, room, pageSize(page.file));
    if (headOf(page.file).isJpeg)
        picture = wanted.isEmpty() ? QImage() : decodePage(page.file, wanted);
    else if (readPicture(page.file, picture).ok())
        picture = picture.scaled(sizeToRead(page, room, picture.size()), Qt::IgnoreAspectRatio,
                                 Qt::SmoothTransformation);
    if (picture.hasAlphaChannel())
        picture = onWhite(picture);
    return shaped(std::move(picture), page);
}

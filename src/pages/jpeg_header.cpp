#include "pages/jpeg_header.h"

#include <QBuffer>
#include <QByteArray>
#include <QtEndian>

#include <optional>

// A JPEG is a row of segments, each with a marker: FF and another byte.
enum Marker : quint8 { StartOfImage = 0xD8, EndOfImage = 0xD9, StartOfScan = 0xDA, Temporary = 0x01 };

struct Segment {
    quint8 marker = 0;
    QByteArray bytes;

    quint8 at(qsizetype place) const { return place < bytes.size() ? static_cast<quint8>(bytes[place]) : 0; }
    int pairAt(qsizetype place) const { return at(place) << 8 | at(place + 1); }
};

// As the decoder does it, over whatever stands before the marker.
static std::optional<quint8> nextMarker(QIODevice &file)
{
    char before = 0;
    for (char byte = 0; file.getChar(&byte); before = byte) {
        if (before == '\xFF' && byte != '\xFF' && byte != '\0')
            return static_cast<quint8>(byte);
    }
    return {};
}

static bool standsAlone(quint8 marker)
{
    return marker == Temporary || (marker >= 0xD0 && marker <= EndOfImage);
}

static std::optional<Segment> nextSegment(QIODevice &file)
{
    const std::optional<quint8> marker = nextMarker(file);
    if (!marker || standsAlone(*marker))
        return marker ? std::optional(Segment{*marker, {}}) : std::nullopt;
    const QByteArray length = file.read(2); // which counts itself
    if (length.size() < 2)
        return {};
    return Segment{*marker, file.read(qMax(qFromBigEndian<quint16>(length.constData()) - 2, 0))};
}

// The segment that tells width, height and components; its marker tells the way of coding.
static bool isFrame(quint8 marker)
{
    return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

static bool isProgressive(const Segment &frame)
{
    return (frame.marker & 3) == 2;
}

// Two bytes for each sample of each component, in blocks of 8 by 8.
static qint64 bytesForSamples(const Segment &frame)
{
    const qint64 height = frame.pairAt(1), width = frame.pairAt(3);
    const int components = frame.at(5);
    const auto across = [&](int k) { return qMax(frame.at(7 + 3 * k) >> 4, 1); };
    const auto down = [&](int k) { return qMax(frame.at(7 + 3 * k) & 15, 1); };
    int mostAcross = 1, mostDown = 1;
    for (int k = 0; k < components; k += 1) {
        mostAcross = qMax(mostAcross, across(k));
        mostDown = qMax(mostDown, down(k));
    }
    const auto blocks = [](qint64 samples, int part, int whole) {
        return (samples * part + 8 * whole - 1) / (8 * whole);
    };
    qint64 bytes = 0;
    for (int k = 0; k < components; k += 1)
        bytes += blocks(width, across(k), mostAcross) * blocks(height, down(k), mostDown) * 64 * 2;
    return bytes;
}

static qint64 bytesForScansFrom(QIODevice &file)
{
    Segment frame;
    for (std::optional<Segment> next = nextSegment(file); next; next = nextSegment(file)) {
        if (isFrame(next->marker))
            frame = *next;
        if (next->marker == EndOfImage)
            return 0;
        if (next->marker == StartOfScan)
            return isProgressive(frame) || next->at(0) < frame.at(5) ? bytesForSamples(frame) : 0;
    }
    return 0;
}

qint64 bytesForScans(QIODevice &file)
{
    const bool isJpeg = file.peek(2) == "\xFF\xD8";
    const qint64 bytes = isJpeg ? bytesForScansFrom(file) : 0;
    file.seek(0);
    return bytes;
}

// What every decoder reads: baseline, extended or progressive, 8 bits a sample, grey or in colour.
static bool isUsualFrame(const Segment &frame)
{
    static constexpr quint8 baseline = 0xC0, progressive = 0xC2, bitsPerSample = 8;
    const quint8 components = frame.at(5);
    return frame.marker >= baseline && frame.marker <= progressive && frame.at(0) == bitsPerSample
        && (components == 1 || components == 3) && frame.bytes.size() >= 6 + 3 * components;
}

bool beginsJpeg(QByteArrayView head, qint64 mostPixels)
{
    if (!head.startsWith("\xFF\xD8\xFF"))
        return false;
    QByteArray bytes = QByteArray::fromRawData(head.data(), head.size());
    QBuffer file(&bytes);
    file.open(QIODevice::ReadOnly);
    for (std::optional<Segment> next = nextSegment(file); next; next = nextSegment(file)) {
        if (!isFrame(next->marker))
            continue;
        const qint64 pixels = qint64{next->pairAt(1)} * next->pairAt(3);
        return isUsualFrame(*next) && pixels > 0 && pixels <= mostPixels;
    }
    return false;
}

#include "intake/page_images.h"

#include "files/platform.h"
#include "intake/page_picture.h"
#include "intake/pdf.h"

#include <chrono>

using namespace std::chrono_literals;

PageImages::PageImages()
    : images_(48 << 20) // bytes
{
    next_.setSingleShot(true);
    limit_.setSingleShot(true);
    connect(&next_, &QTimer::timeout, this, &PageImages::makeNext);
    connect(&limit_, &QTimer::timeout, &program_, &QProcess::kill);
    connect(&program_, &QProcess::finished, this, &PageImages::endPdf);
    connect(&program_, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            endPdf();
    });
    limitMemory(program_, 500'000'000);
}

PageImages::~PageImages()
{
    program_.disconnect();
    program_.kill();
    program_.waitForFinished(1000);
}

static QString keyOf(const ComingPage &page, QSize room)
{
    const int numbers[] = {page.pdfPage,     page.turns,   page.part,
                           page.turnsOfPart, room.width(), room.height()};
    QString key = page.file;
    for (const int number : numbers)
        key += u'\n' + QString::number(number);
    return key;
}

QImage PageImages::image(const ComingPage &page, QSize room)
{
    static constexpr qsizetype mostWanted = 80; // more than are ever in view
    if (!page.exists() || room.isEmpty())
        return {};
    const QString key = keyOf(page, room);
    if (const QImage *known = images_.object(key))
        return *known;
    wanted_.removeIf([&](const Wanted &each) { return each.key == key; });
    wanted_.prepend({page, room, key});
    if (wanted_.size() > mostWanted)
        wanted_.removeLast();
    if (!isPaused_ && !next_.isActive())
        next_.start();
    return {};
}

void PageImages::setPaused(bool paused)
{
    isPaused_ = paused;
    if (paused)
        next_.stop();
    else
        next_.start();
}

// Pictures are made while a program is at a page of a PDF.
void PageImages::makeNext()
{
    const bool isBusy = program_.state() != QProcess::NotRunning;
    for (qsizetype i = 0; i < wanted_.size(); i += 1) {
        if (wanted_[i].page.pdfPage > 0 && isBusy)
            continue;
        const Wanted wanted = wanted_.takeAt(i);
        if (wanted.page.pdfPage > 0)
            startPdf(wanted);
        else
            makeFromPicture(wanted);
        next_.start();
        return;
    }
}

void PageImages::keep(const Wanted &wanted, const QImage &image)
{
    static constexpr qsizetype least = 64;
    images_.insert(wanted.key, new QImage(image), least + image.sizeInBytes());
    emit made();
}

void PageImages::makeFromPicture(const Wanted &wanted)
{
    const Result checked = headOf(wanted.page.file).result;
    const QImage image = checked.ok() ? smallPicture(wanted.page, wanted.room) : QImage();
    keep(wanted, image);
    const QString name = wanted.page.file.section(u'/', -1) + ": ";
    if (!checked.ok())
        emit noticed(wanted.page, name + checked.reason, true);
    else if (image.isNull())
        emit noticed(wanted.page, name + "it cannot be shown", true);
    else if (isCutShort(wanted.page.file))
        emit noticed(wanted.page, name + "its end is missing", false);
}

// At the size that is needed: twice as large for a half.
void PageImages::startPdf(const Wanted &wanted)
{
    const int longest = qMax(wanted.room.width(), wanted.room.height());
    const int size = wanted.page.part == ComingPage::Whole ? longest : 2 * longest;
    const QString page = QString::number(wanted.page.pdfPage);
    inPdf_ = wanted;
    limit_.start(20s);
    program_.start("pdftoppm",
                   {"-q", "-f", page, "-l", page, "-scale-to", QString::number(size), wanted.page.file},
                   QIODevice::ReadOnly);
}

void PageImages::endPdf()
{
    limit_.stop();
    QByteArray output = program_.readAllStandardOutput();
    QImage image;
    if (const QByteArray picture = takePicture(output); !picture.isEmpty())
        (void)readPicture(picture, inPdf_.page.file, image);
    if (!image.isNull())
        image = shaped(image, inPdf_.page).scaled(inPdf_.room, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    keep(inPdf_, image);
    if (image.isNull() && inPdf_.page.dpi > 0) // else it was told of when it was added
        emit noticed(inPdf_.page, QStringLiteral("its page %1 cannot be shown").arg(inPdf_.page.pdfPage),
                     false);
    if (!isPaused_)
        next_.start();
}

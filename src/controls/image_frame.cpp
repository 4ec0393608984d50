#include "controls/image_frame.h"

#include "controls/page_image.h"

#include <QAccessibleWidget>
#include <QFileInfo>
#include <QPainter>

// Tells a screen reader that a frame is a picture.
static QAccessibleInterface *pictureFor(const QString &className, QObject *object)
{
    if (className != QLatin1String("ImageFrame"))
        return nullptr;
    return new QAccessibleWidget(static_cast<ImageFrame *>(object), QAccessible::Graphic);
}

ImageFrame::ImageFrame(QWidget *parent)
    : QWidget(parent)
{
    QAccessible::installFactory(pictureFor);
}

void ImageFrame::showFile(const QString &path)
{
    path_ = QFileInfo::exists(path) ? path : QString();
    decode();
    update();
}

void ImageFrame::decode()
{
    picture_ = {};
    notice_.clear();
    decodedFor_ = devicePixelRatioF();
    if (!path_.isEmpty()) {
        picture_ = QPixmap::fromImage(decodePage(path_, (QSizeF(size()) * decodedFor_).toSize()));
        if (picture_.isNull())
            notice_ = QStringLiteral("%1\ncannot be shown").arg(QFileInfo(path_).fileName());
    }
    setAccessibleDescription(picture_.isNull() ? notice_ : QFileInfo(path_).fileName());
}

void ImageFrame::paintEvent(QPaintEvent *)
{
    if (!qFuzzyCompare(decodedFor_, devicePixelRatioF()))
        decode();
    QPainter painter(this);
    if (picture_.isNull())
        painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap, notice_);
    else
        painter.drawPixmap(rect(), picture_);
}

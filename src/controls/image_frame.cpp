#include "controls/image_frame.h"

#include "pages/page_image.h"

#include <QAccessibleWidget>
#include <QFileInfo>
#include <QPainter>

// Lets a screen reader know what Qt has no word for: that a page is a picture.
static QAccessibleInterface *pictureInterface(const QString &, QObject *object)
{
    auto *frame = qobject_cast<ImageFrame *>(object);
    return frame ? new QAccessibleWidget(frame, QAccessible::Graphic) : nullptr;
}

ImageFrame::ImageFrame(QWidget *parent)
    : QWidget(parent)
{
    static const bool installed = (QAccessible::installFactory(pictureInterface), true);
    Q_UNUSED(installed)
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

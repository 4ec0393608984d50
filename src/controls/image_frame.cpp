#include "controls/image_frame.h"

#include "pages/page_image.h"

#include <QFileInfo>
#include <QPainter>

void ImageFrame::showFileIfOther(const QString &path)
{
    const QFileInfo file(path);
    if (path_ != (file.exists() ? path : QString()) || modified_ != file.lastModified())
        showFile(path);
}

void ImageFrame::showFile(const QString &path)
{
    const QFileInfo file(path);
    path_ = file.exists() ? path : QString();
    modified_ = file.lastModified();
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
    paintFocus(painter);
}

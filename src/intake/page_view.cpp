#include "intake/page_view.h"

#include "intake/page_images.h"
#include "look/look.h"

#include <QPainter>

PageView::PageView(const QString &spokenName, PageImages &images, QWidget *parent)
    : QWidget(parent)
    , images_(images)
{
    setObjectName(spokenName);
    setAccessibleName(spokenName);
    setMinimumSize(120, 100);
    connect(&images, &PageImages::made, this, qOverload<>(&QWidget::update));
}

void PageView::showPage(const ComingPage &page)
{
    page_ = page;
    setAccessibleDescription(page.file.section(u'/', -1));
    update();
}

void PageView::paintEvent(QPaintEvent *)
{
    QImage image = images_.image(page_, (QSizeF(size()) * devicePixelRatioF()).toSize());
    if (image.isNull())
        return;
    QRectF place({}, QSizeF(image.size()) / devicePixelRatioF());
    place.moveCenter(QRectF(rect()).center());
    QPainter painter(this);
    painter.drawImage(place, image);
    painter.setPen(faceColour); // the edge of white paper
    painter.drawRect(place.adjusted(0, 0, -1, -1));
}

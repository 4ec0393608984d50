#include "songs/page_pane.h"

#include "controls/image_frame.h"
#include "pages/page_image.h"

PagePane::PagePane(const QString &spokenName, QWidget *parent)
    : QWidget(parent)
    , frame_(new ImageFrame(this))
{
    frame_->setObjectName("Image " + spokenName);
    frame_->setAccessibleName(spokenName);
    setMinimumSize(120, 100);
}

void PagePane::showPage(const QString &path)
{
    path_ = path;
    fit();
}

void PagePane::resizeEvent(QResizeEvent *)
{
    fit();
}

void PagePane::fit()
{
    const QSize page = pageSize(path_);
    QRect place = rect();
    if (!page.isEmpty()) {
        place.setSize(page.scaled(size(), Qt::KeepAspectRatio));
        place.moveCenter(rect().center());
    }
    frame_->setGeometry(place);
    frame_->showFile(path_);
}

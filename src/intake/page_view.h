#pragma once

#include "intake/coming_song.h"

#include <QWidget>

class PageImages;

// Shows a page that is to come, as large as there is room.
class PageView : public QWidget
{
    Q_OBJECT
public:
    PageView(const QString &spokenName, PageImages &images, QWidget *parent);

    void showPage(const ComingPage &page);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    PageImages &images_;
    ComingPage page_;
};

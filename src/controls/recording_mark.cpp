#include "controls/recording_mark.h"

#include <QIcon>
#include <QPainter>

void RecordingMark::paintEvent(QPaintEvent *)
{
    static const QIcon picture(":/images/recording.png");
    QPainter painter(this);
    picture.paint(&painter, {0, 0, 50, 54});
    paintFocus(painter);
}

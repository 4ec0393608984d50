#pragma once

#include "controls/openable.h"

#include <QDateTime>
#include <QPixmap>

// Shows a page stretched to its whole frame, whatever the page's proportions.
class ImageFrame : public Openable
{
    Q_OBJECT
public:
    using Openable::Openable;

    // Shows the file, or empties the frame where there is none of that name. A file that cannot be shown
    // leaves the frame without a picture, and notice() stands in it.
    void showFile(const QString &path);
    // The same, but a file that it shows already, and that has not been changed since, is not decoded again.
    void showFileIfOther(const QString &path);

    // The file it shows, or cannot show; empty where there is none.
    const QString &path() const { return path_; }
    const QPixmap &picture() const { return picture_; }
    QString notice() const { return notice_; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void decode();

    QString path_; // empty while the frame is
    QDateTime modified_; // when the file was last changed, at the time it was decoded
    QPixmap picture_;
    QString notice_;
    qreal decodedFor_ = 0; // device pixels for a logical one when the picture was decoded
};

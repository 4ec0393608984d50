#pragma once

#include "intake/coming_song.h"

#include <QCache>
#include <QImage>
#include <QObject>
#include <QProcess>
#include <QSize>
#include <QTimer>

// Pictures of pages for looking at, made one after the other while the program has nothing else to do, those
// that were asked for last first. Those of PDFs come from a program that runs beside.
class PageImages : public QObject
{
    Q_OBJECT
public:
    PageImages();
    ~PageImages() override;

    // The picture of a page that fits into `room`; a null one while there is none, and then made() tells when
    // it comes. A page that cannot be shown stays without.
    QImage image(const ComingPage &page, QSize room);
    // Nothing is made while work is running.
    void setPaused(bool paused);

signals:
    void made();
    // In words; the page cannot be shown, or there is something to be known about it.
    void noticed(const ComingPage &page, const QString &words, bool cannotCome);

private:
    struct Wanted {
        ComingPage page;
        QSize room;
        QString key;
    };

    void makeNext();
    void makeFromPicture(const Wanted &wanted);
    void startPdf(const Wanted &wanted);
    void endPdf();
    void keep(const Wanted &wanted, const QImage &image);

    QCache<QString, QImage> images_; // by page and room; a null one cannot be shown
    QList<Wanted> wanted_; // the last first
    Wanted inPdf_; // what the program is at
    QProcess program_;
    QTimer next_;
    QTimer limit_; // of the program's time
    bool isPaused_ = false;
};

#pragma once

#include <QWidget>

class ImageFrame;

// Shows a page in its own proportions, as large as there is room.
class PagePane : public QWidget
{
    Q_OBJECT
public:
    PagePane(const QString &spokenName, QWidget *parent);

    // Nothing is shown where there is no such file.
    void showPage(const QString &path);

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void fit();

    ImageFrame *frame_;
    QString path_;
};

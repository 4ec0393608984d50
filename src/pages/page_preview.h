#pragma once

#include <QTimer>
#include <QWidget>

class ImageFrame;

// A pop-up that shows a scan beside a window, as large as there is room. It takes neither the focus nor
// clicks, and is there only while the window is the active one.
class PagePreview : public QWidget
{
    Q_OBJECT
public:
    // The window owns it.
    explicit PagePreview(QWidget *window);

    // Shows the file soon, so that nobody waits for pictures while browsing through a list.
    void showFile(const QString &path);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void showNow();
    void disappear();
    QRect placeBeside() const;

    ImageFrame *frame_;
    QString path_;
    QTimer soon_;
};

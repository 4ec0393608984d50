#pragma once

#include <QTextBrowser>

// The manual with its pictures, none wider than there is room for. Each heading is an anchor, called as a
// link to it in docs/manual.md calls it: "#bring-in-songs" leads to "Bring in songs".
class ManualText : public QTextBrowser
{
    Q_OBJECT
public:
    explicit ManualText(QWidget *parent = nullptr);

    // Has the heading of this anchor at the top and the caret before it; the beginning if there is none.
    void showHeading(const QString &anchor);

    // Selects the next place of these words, from the caret on and then from the beginning; false if there
    // is none. Case does not count.
    bool findOn(const QString &words);

protected:
    QVariant loadResource(int type, const QUrl &name) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void read();

    int widthRead_ = 0; // in logical pixels, for which the pictures were made
};

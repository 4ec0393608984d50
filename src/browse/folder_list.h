#pragma once

#include <QTreeWidget>

// Shows where in the folders a person is: the way from the root down, a row each, and below it the
// folders of the one that is open. A double click or Enter opens the folder of a row. It starts at the
// working directory, and reads the folders again when a person comes back to it.
class FolderList : public QTreeWidget
{
    Q_OBJECT
public:
    explicit FolderList(QWidget *parent);

    // Opens a folder, as a person would. One that cannot be read leaves the list where it is, and the
    // tool-tip tells why until the next click; the answer is then false.
    bool setPath(const QString &folder);

    // The open folder with this platform's separators, and none at its end except for a root's own.
    QString path() const;

signals:
    // A folder was opened, be it the same one again, which has then been read afresh.
    void folderChanged(const QString &path);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    bool viewportEvent(QEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    // No row can be closed, so none has a mark for it.
    void drawBranches(QPainter *, const QRect &, const QModelIndex &) const override { }

private:
    void openRow(const QTreeWidgetItem *row);
    void showWay();
    void showReason();
    void readAgain();
    void indentRows();

    QString path_;
    bool wasHidden_ = false;
};

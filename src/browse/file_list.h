#pragma once

#include <QListView>

class QStringListModel;

// Lists the files of one folder whose names match a pattern, and has at most one of them selected. It
// starts at the working directory, and reads the folder whenever it is shown or told where to stand.
class FileList : public QListView
{
    Q_OBJECT
public:
    explicit FileList(QWidget *parent);

    // Which names are listed, e.g. "*.jpg"; upper and lower case are the same.
    void setPattern(const QString &pattern) { pattern_ = pattern; }

    // Lists that folder. The selection goes, unless it is the same folder and the file is still there.
    void setPath(const QString &folder);

    // The folder with this platform's separators, and none at its end except for a root's own.
    QString path() const;

    // The name of the selected file; empty while none is.
    const QString &selected() const { return selected_; }

    // path(), a separator, selected(): in a root folder the separator stands twice, which every file
    // system accepts. Empty while no file is selected.
    QString selectedPath() const;

signals:
    // A person selected another file than before, with the mouse or with the keyboard.
    void fileClicked();

protected:
    void showEvent(QShowEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex &index,
                                                         const QEvent *event) const override;

private:
    void readFolder();
    void select(int row);
    void takeSelection();

    QStringListModel *names_;
    QString path_;
    QString pattern_ = "*";
    QString selected_;
};

#pragma once

#include "history/versions_model.h"
#include "window/layout_window.h"

#include <functional>

class Edits;
class PagePane;
class QLabel;
class QPushButton;
class QStackedWidget;
class QStandardItemModel;
class QTableView;

// The window "Earlier versions": what the files of the archive were before they were replaced, and how to
// have that back.
class EarlierVersions : public LayoutWindow
{
    Q_OBJECT
public:
    // What it needs of others.
    struct Doors {
        Versions &versions;
        Edits &edits;
        // Whether unsaved changes may be thrown away; asks where there are some.
        std::function<bool()> mayForgetUnsaved;
        // Loads the main window anew after the archive was replaced.
        std::function<void()> reload;
        // Any other file of the archive is another one now.
        std::function<void()> diskChanged;
    };
    explicit EarlierVersions(Doors doors);

protected:
    bool event(QEvent *event) override;

private:
    QWidget *makeVersions();
    QWidget *makeDetails();
    QLayout *makeButtons();

    void refresh();
    void showVersion();
    void showDifferences(const Differences &comparison);
    void fitRows();
    void bringBackVersion();
    void bringBackTyped(const QString &path);
    void bringBackChosen();

    int row() const;
    QList<int> chosenSongs() const;
    bool mayLoseSongs(const QString &path) const;
    bool mayBringBack(const Version &version, const QString &path) const;
    void tellDone(const Version &version);

    const Doors doors_;
    bool isEdited_ = false; // since the versions were compared
    VersionsModel *model_;
    QTableView *versions_ = nullptr;
    QTableView *differences_ = nullptr;
    QStandardItemModel *differing_ = nullptr;
    PagePane *picture_ = nullptr;
    QLabel *recording_ = nullptr;
    QStackedWidget *details_ = nullptr;
    QPushButton *all_ = nullptr; // Bring back
    QPushButton *chosen_ = nullptr; // Bring back chosen songs
};

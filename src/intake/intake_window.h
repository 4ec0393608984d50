#pragma once

#include "intake/coming_table.h"
#include "intake/page_images.h"
#include "window/layout_window.h"

#include <functional>
#include <optional>

class ComingView;
class PageView;
class QCheckBox;
class QComboBox;
class QLabel;
class QLayout;
class QLineEdit;
class QMenu;
class QPushButton;
class TextBox;
struct BringInReport;

// The window "Bring in songs": scans, PDFs and recordings become songs, looked through in a table and brought
// in all at once.
class IntakeWindow : public LayoutWindow
{
    Q_OBJECT
public:
    // `loadAnew` opens the main window again on what the disk holds, with this song.
    explicit IntakeWindow(std::function<void(int)> loadAnew);

    // Adds what files and folders hold to the table.
    void addPaths(const QStringList &paths);

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    // What can be done with the chosen rows; one without a text is a line in the menu.
    struct Deed {
        QString text;
        QKeySequence key;
        std::function<bool()> isPossible;
        std::function<void()> act;
    };

    QLayout *makeFiles();
    QLayout *makeReading();
    QWidget *makeMiddle();
    QLayout *makeFoot();
    void makeActions();
    void connectAll();

    Reading reading() const;
    void readAnew();
    void addContents();
    void makeDeeds();
    void openMenu(const QPoint &placeOnScreen);
    QModelIndexList chosenPages() const;
    void noteOnPage(const ComingPage &page, const QString &words, bool cannotCome);
    void showCounts();
    void showPages();
    std::optional<int> untickWhatCannotCome();
    bool askForTheOthers(qsizetype bad);
    bool askWhetherToGoOn();
    std::optional<BringInReport> bringInWhatCanCome(const QString &playlist);
    void bringInTicked();
    void endBringingIn(const BringInReport &report, const QString &playlist);
    void tell(int count, int firstSong, const QString &playlist, const QStringList &troubles);

    const std::function<void(int)> loadAnew_;
    ComingTable table_;
    PageImages images_;
    FoundFiles files_;
    QHash<QString, PdfInfo> pdfs_;
    QList<Deed> deeds_;

    QComboBox *pagesOfSong_;
    QComboBox *namesAre_;
    QCheckBox *leaveOutNumbers_;
    QPushButton *contents_;
    ComingView *view_;
    PageView *left_;
    PageView *right_;
    QLabel *count_;
    QCheckBox *makePlaylist_;
    TextBox *playlist_;
    QPushButton *bringIn_;
};

#include "stand/check_window.h"

#include "archive/archive_operations.h"
#include "stand/mend.h"
#include "text/counting.h"
#include "window/message_box.h"
#include "window/progress.h"

#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

using Mend = Mending::Kind;
using Place = Finding::Place;

CheckWindow::CheckWindow(Doors doors)
    : LayoutWindow("check", "Check the archive", {960, 560})
    , doors_(std::move(doors))
    , model_(new FindingsModel(this))
    , state_(new QLabel)
    , findings_(new QTableView)
{
    state_->setObjectName("state");
    state_->setTextFormat(Qt::PlainText);
    state_->setWordWrap(true);
    makeTable();
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(state_);
    layout->addWidget(findings_, 1);
    layout->addLayout(makeFoot());
    showButtons();
    findings_->setFocus();
}

void CheckWindow::makeTable()
{
    findings_->setModel(model_);
    findings_->setObjectName("Findings");
    findings_->setAccessibleName("Findings");
    findings_->setSelectionBehavior(QAbstractItemView::SelectRows);
    findings_->setTabKeyNavigation(false);
    findings_->setShowGrid(false);
    findings_->verticalHeader()->hide();
    findings_->horizontalHeader()->setStretchLastSection(true);
    findings_->horizontalHeader()->setHighlightSections(false);
    findings_->setColumnWidth(FindingsModel::What, 290);
    findings_->setColumnWidth(FindingsModel::Song, 170);
    connect(findings_->horizontalHeader(), &QHeaderView::sectionResized, findings_,
            &QTableView::resizeRowsToContents);
    connect(findings_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &CheckWindow::showButtons);
    connect(findings_, &QTableView::activated, this, &CheckWindow::goTo);
}

QLayout *CheckWindow::makeFoot()
{
    auto *foot = new QHBoxLayout;
    foot->addStretch();
    const auto add = [&](const QString &text, void (CheckWindow::*pressed)()) {
        auto *button = pushButton(text);
        foot->addWidget(button);
        connect(button, &QPushButton::clicked, this, pressed);
        return button;
    };
    goTo_ = add("Go to", &CheckWindow::goTo);
    mend_ = add("Mend", &CheckWindow::mendChosen);
    QPushButton *again = add("Check again", &CheckWindow::check);
    connect(new QShortcut(QKeySequence::Refresh, this), &QShortcut::activated, again, &QPushButton::click);
    return foot;
}

QList<int> CheckWindow::chosenRows() const
{
    QList<int> rows;
    for (const QModelIndex &cell : findings_->selectionModel()->selectedRows())
        rows += cell.row();
    std::sort(rows.begin(), rows.end());
    return rows;
}

void CheckWindow::showButtons()
{
    const QList<int> rows = chosenRows();
    goTo_->setEnabled(rows.size() == 1 && model_->at(rows.first()).place != Place::Nowhere);
    mend_->setEnabled(std::any_of(rows.begin(), rows.end(),
                                  [this](int row) { return model_->at(row).mending.kind != Mend::None; }));
}

void CheckWindow::check()
{
    checkAndTell({});
}

void CheckWindow::checkAndTell(const QString &before)
{
    const int row = qMax(findings_->currentIndex().row(), 0);
    setWorking(true);
    model_->show(checkWholeArchive(progressBox("Looking at the pages …")));
    setWorking(false);
    findings_->resizeRowsToContents();
    findings_->selectRow(qMin(row, model_->rowCount() - 1));
    showButtons();
    showState(before);
}

void CheckWindow::showState(const QString &before)
{
    const ArchiveCheck &check = model_->check();
    QStringList said{before};
    const int count = model_->rowCount();
    if (check.wasCancelled)
        said += "Cancelled after " + counted(check.pages, "page")
            + ": the others were not looked at. Nothing was changed.";
    else if (count == 0)
        said += "Nothing is wrong: the archive is as the stand expects it.";
    if (count > 0)
        said += counted(count, "finding") + '.';
    if (hasUnsavedChanges())
        said += "What you have changed and not saved was not looked at.";
    said.removeAll(QString());
    state_->setText(said.join(' '));
}

void CheckWindow::goTo()
{
    const QList<int> rows = chosenRows();
    if (rows.size() != 1)
        return;
    const Finding &finding = model_->at(rows.first());
    switch (finding.place) {
    case Place::Song:
        return doors_.showSong(finding.song);
    case Place::SongsWithoutTitle:
        return doors_.showSongsWithoutTitle();
    case Place::SongsOfSameTitle:
        return doors_.showSongsOfSameTitle();
    case Place::Playlists:
        return doors_.showPlaylists();
    case Place::Nowhere:
        break;
    }
}

static QList<Mending> mayBeDone(QList<Mending> mendings)
{
    QStringList gone;
    for (const Mending &mending : std::as_const(mendings)) {
        if (mending.kind == Mend::TakeAway)
            gone += mending.name;
    }
    static constexpr qsizetype mostNamed = 15;
    if (!gone.isEmpty()
        && !askBeforeLoss("These files will be deleted:\n" + someOf(gone, mostNamed, "\n")
                          + "\nDo you want that?"))
        mendings.removeIf([](const Mending &mending) { return mending.kind == Mend::TakeAway; });
    return mendings;
}

// Mend
void CheckWindow::mendChosen()
{
    QList<Mending> mendings;
    for (const int row : chosenRows()) {
        if (model_->at(row).mending.kind != Mend::None)
            mendings += model_->at(row).mending;
    }
    QStringList done, failed;
    for (const Mending &mending : mayBeDone(mendings)) {
        const Result mended = mend(mending);
        if (mended.ok())
            done += doneText(mending);
        else
            failed += mended.text();
    }
    if (!done.isEmpty())
        doors_.filesChanged();
    checkAndTell(done.size() > 3 ? counted(done.size(), "thing") + " mended." : done.join(' '));
    if (!failed.isEmpty())
        messageBox("This was not mended, and is as it was before.\n" + failed.join('\n'));
}

#include "history/earlier_versions.h"

#include "history/bring_back.h"
#include "history/recovery_question.h"
#include "history/unsaved.h"
#include "songs/edits.h"
#include "songs/page_pane.h"
#include "text/counting.h"
#include "window/message_box.h"

#include <QEvent>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSplitter>
#include <QStackedWidget>
#include <QStandardItemModel>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>

static constexpr int recordRole = Qt::UserRole;
static constexpr qsizetype mostWrapped = 300; // differences that get as many lines as they need

static QTableView *tableOf(QAbstractItemModel *model, const QString &spokenName)
{
    auto *table = new QTableView;
    table->setModel(model);
    table->setAccessibleName(spokenName);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setTabKeyNavigation(false);
    table->setShowGrid(false);
    table->verticalHeader()->hide();
    table->horizontalHeader()->setStretchLastSection(true);
    table->horizontalHeader()->setHighlightSections(false);
    return table;
}

EarlierVersions::EarlierVersions(Doors doors)
    : LayoutWindow("versions", "Earlier versions", {960, 600})
    , doors_(std::move(doors))
    , model_(new VersionsModel(doors_.versions, this))
{
    auto *halves = new QSplitter;
    halves->addWidget(makeVersions());
    halves->addWidget(makeDetails());
    halves->setChildrenCollapsible(false);
    halves->setSizes({520, 440});
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(halves, 1);
    layout->addLayout(makeButtons());
    connect(&doors_.edits, &Edits::changed, this, [this] { isEdited_ = true; });
    connect(&doors_.edits, &Edits::replaced, this, [this] { isEdited_ = true; });
    refresh();
    versions_->setFocus();
}

QWidget *EarlierVersions::makeVersions()
{
    versions_ = tableOf(model_, "Versions");
    versions_->setSelectionMode(QAbstractItemView::SingleSelection);
    for (const int column : {VersionsModel::Until, VersionsModel::File})
        versions_->horizontalHeader()->setSectionResizeMode(column, QHeaderView::ResizeToContents);
    connect(versions_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this] { showVersion(); });
    return versions_;
}

QWidget *EarlierVersions::makeDetails()
{
    differing_ = new QStandardItemModel(this);
    differences_ = tableOf(differing_, "Differences");
    differences_->horizontalHeader()->setStretchLastSection(false); // all but the field share the width
    differences_->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    connect(differences_->horizontalHeader(), &QHeaderView::sectionResized, this, &EarlierVersions::fitRows);
    connect(differences_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this] { chosen_->setEnabled(!chosenSongs().isEmpty()); });
    picture_ = new PagePane("Page", this);
    recording_ = new QLabel;
    recording_->setAlignment(Qt::AlignCenter);
    recording_->setWordWrap(true);
    recording_->setTextFormat(Qt::PlainText);
    details_ = new QStackedWidget;
    for (QWidget *page : {static_cast<QWidget *>(differences_), static_cast<QWidget *>(picture_),
                          static_cast<QWidget *>(recording_)})
        details_->addWidget(page);
    return details_;
}

QLayout *EarlierVersions::makeButtons()
{
    all_ = pushButton("Bring back");
    chosen_ = pushButton("Bring back chosen songs");
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(chosen_);
    buttons->addWidget(all_);
    connect(all_, &QPushButton::clicked, this, &EarlierVersions::bringBackVersion);
    connect(chosen_, &QPushButton::clicked, this, &EarlierVersions::bringBackChosen);
    return buttons;
}

// Something may have been typed or saved while another window was active.
bool EarlierVersions::event(QEvent *event)
{
    if (event->type() == QEvent::WindowActivate && (isEdited_ || !model_->isCurrent()))
        refresh();
    return LayoutWindow::event(event);
}

// The version that was chosen stays so, as long as there is one.
void EarlierVersions::refresh()
{
    const int before = row();
    const QString name = before < 0 ? QString() : model_->at(before).name();
    isEdited_ = false;
    model_->refresh();
    const int after = qMax(0, model_->rowOf(name));
    if (after < model_->rowCount())
        versions_->selectRow(after);
    showVersion();
}

int EarlierVersions::row() const
{
    const QModelIndexList rows = versions_->selectionModel()->selectedRows();
    return rows.isEmpty() ? -1 : rows.first().row();
}

void EarlierVersions::showVersion()
{
    const int shown = row();
    all_->setEnabled(shown >= 0);
    chosen_->setEnabled(false);
    chosen_->setVisible(shown < 0 || model_->at(shown).kind() == Version::Kind::Data);
    if (shown < 0) {
        recording_->setText(model_->rowCount() > 0 ? "" : "There are no earlier versions yet.");
        details_->setCurrentWidget(recording_);
    } else if (model_->at(shown).kind() == Version::Kind::Data) {
        showDifferences(model_->comparison(shown));
        details_->setCurrentWidget(differences_);
    } else if (model_->at(shown).file.endsWith(".jpg")) {
        details_->setCurrentWidget(picture_);
        picture_->showPage(model_->pathOf(shown));
    } else {
        recording_->setText(nameForPeople(model_->at(shown).file));
        details_->setCurrentWidget(recording_);
    }
}

void EarlierVersions::showDifferences(const Differences &comparison)
{
    differing_->clear();
    differing_->setHorizontalHeaderLabels({"Which", "Field", "Then", "Now"});
    differences_->horizontalHeader()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    for (const Difference &difference : comparison.differences) {
        QList<QStandardItem *> cells;
        for (const QString &text : {difference.what, difference.field, difference.then, difference.now}) {
            cells += new QStandardItem(text);
            cells.last()->setToolTip(text);
        }
        cells.first()->setData(difference.record, recordRole);
        differing_->appendRow(cells);
    }
    fitRows();
}

// Which takes longer than reading the version where there are many.
void EarlierVersions::fitRows()
{
    if (differing_->rowCount() <= mostWrapped)
        differences_->resizeRowsToContents();
}

QList<int> EarlierVersions::chosenSongs() const
{
    QList<int> songs;
    const int shown = row();
    if (shown < 0 || (model_->at(shown).file != "archivio.js" && model_->at(shown).file != unsavedName))
        return songs;
    for (const QModelIndex &cell : differences_->selectionModel()->selectedRows()) {
        const int record = cell.data(recordRole).toInt();
        if (record > 0 && !songs.contains(record))
            songs += record;
    }
    std::sort(songs.begin(), songs.end());
    return songs;
}

// A version of fewer songs takes those behind it with it.
bool EarlierVersions::mayLoseSongs(const QString &path) const
{
    static constexpr qsizetype mostNamed = 15;
    const QStringList songs = songsBehind(archiveOfVersion(path).count());
    if (songs.isEmpty())
        return true;
    return askBeforeLoss("This version does not have these songs, and they would go:\n"
                         + someOf(songs, mostNamed, "\n") + "\nDo you want to bring it back all the same?");
}

bool EarlierVersions::mayBringBack(const Version &version, const QString &path) const
{
    if (version.file != "archivio.js")
        return true;
    const ArchiveTable table = archiveOfVersion(path);
    if (!table.result.ok()) {
        messageBox("The version was not brought back; the archive is as it was before.\n"
                   + table.result.text());
        return false;
    }
    return doors_.mayForgetUnsaved() && mayLoseSongs(path);
}

void EarlierVersions::tellDone(const Version &version)
{
    if (version.file == "archivio.js")
        doors_.reload();
    else
        doors_.diskChanged();
    refresh();
    messageBox(nameForPeople(version.file)
               + ": the version is back. What was there before is a version now.");
    comeForward();
}

// Bring back
void EarlierVersions::bringBackVersion()
{
    if (row() < 0)
        return;
    const Version version = model_->at(row());
    const QString path = model_->pathOf(row());
    if (version.file == unsavedName)
        return bringBackTyped(path);
    if (!mayBringBack(version, path))
        return;
    if (const Result done = bringBack(doors_.versions, version); !done.ok())
        messageBox("The version was not brought back; the present file is as it was before.\n" + done.text());
    else
        tellDone(version);
}

void EarlierVersions::bringBackTyped(const QString &path)
{
    const std::optional<Unsaved> unsaved = readUnsaved(path);
    if (!unsaved)
        return messageBox("Nothing was brought back: the version is damaged.");
    const PutBack put = putBack(*unsaved, doors_.edits);
    refresh();
    messageBox(putBackText(put));
}

// Bring back chosen songs
void EarlierVersions::bringBackChosen()
{
    const QList<int> songs = chosenSongs();
    if (row() < 0 || songs.isEmpty())
        return;
    const QList<int> missing = bringBackSongs(doors_.edits, model_->at(row()), model_->pathOf(row()), songs);
    const qsizetype done = songs.size() - missing.size();
    refresh();
    QString text = counted(done, "song is", "songs are") + " as in that version again. Nothing is saved yet.";
    if (!missing.isEmpty())
        text += '\n' + counted(missing.size(), "song is", "songs are") + " not in both and stayed as before.";
    messageBox(text);
}

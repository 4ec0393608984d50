#include "stand/stand_window.h"

#include "archive/archive_operations.h"
#include "files/data_folder.h"
#include "stand/stand_copy.h"
#include "text/counting.h"
#include "window/message_box.h"
#include "window/progress.h"
#include "window/report_box.h"

#include <QFileDialog>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QTableView>
#include <QVBoxLayout>

using Task = PlannedFile::Task;

StandWindow::StandWindow(QString &root)
    : LayoutWindow("stand", "Copy to the stand", {920, 560})
    , root_(root)
    , model_(new StandModel(this))
    , folder_(new QLineEdit)
    , state_(new QLabel)
    , files_(new QTableView)
{
    state_->setObjectName("state");
    state_->setTextFormat(Qt::PlainText);
    state_->setWordWrap(true);
    makeTable();
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(makeHead());
    layout->addWidget(state_);
    layout->addWidget(files_, 1);
    layout->addLayout(makeFoot());
}

QLayout *StandWindow::makeHead()
{
    auto *head = new QHBoxLayout;
    auto *chooser = pushButton("Choose a folder…");
    folder_->setReadOnly(true);
    folder_->setObjectName("Folder");
    folder_->setAccessibleName("Folder of the stand");
    folder_->setPlaceholderText("The folder of the stand");
    head->addWidget(chooser);
    head->addWidget(folder_, 1);
    connect(chooser, &QPushButton::clicked, this, &StandWindow::choose);
    chooser->setFocus();
    return head;
}

void StandWindow::makeTable()
{
    files_->setModel(model_);
    files_->setObjectName("What is to be done");
    files_->setAccessibleName("What is to be done");
    files_->setSelectionBehavior(QAbstractItemView::SelectRows);
    files_->setTabKeyNavigation(false);
    files_->setShowGrid(false);
    files_->setWordWrap(false);
    files_->verticalHeader()->hide();
    files_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    files_->horizontalHeader()->setHighlightSections(false);
    files_->horizontalHeader()->setSectionResizeMode(StandModel::Song, QHeaderView::Stretch);
    files_->setColumnWidth(StandModel::What, 230);
    files_->setColumnWidth(StandModel::File, 170);
}

QLayout *StandWindow::makeFoot()
{
    auto *foot = new QHBoxLayout;
    again_ = pushButton("Look again");
    copy_ = pushButton("Copy");
    foot->addStretch();
    foot->addWidget(again_);
    foot->addWidget(copy_);
    connect(again_, &QPushButton::clicked, this, &StandWindow::look);
    connect(copy_, &QPushButton::clicked, this, &StandWindow::copy);
    connect(new QShortcut(QKeySequence::Refresh, this), &QShortcut::activated, again_, &QPushButton::click);
    return foot;
}

// Choose a folder
void StandWindow::choose()
{
    const QString chosen = QFileDialog::getExistingDirectory(this, "Choose a folder", root_);
    if (chosen.isEmpty()
        || (!hasStartPage(chosen)
            && !askBeforeLoss("In this folder there is no start page (*.html) as in that of a stand:\n"
                              + shownPath(chosen) + "\nDo you want to copy the archive there all the same?")))
        return;
    root_ = chosen;
    look();
}

void StandWindow::look()
{
    StandLook look;
    if (!root_.isEmpty()) {
        setWorking(true);
        look = lookAtStand(root_, progressBox("Looking at the stand …"));
        setWorking(false);
    }
    model_->show(std::move(look));
    showState();
}

void StandWindow::showState()
{
    const bool isChosen = !root_.isEmpty();
    folder_->setText(isChosen ? shownPath(root_) : QString());
    state_->setText(stateText());
    again_->setEnabled(isChosen);
    copy_->setEnabled(isChosen && model_->look().result.ok());
    if (copy_->isEnabled())
        copy_->setFocus();
}

static QString countsText(const StandLook &look)
{
    const int added = look.countOf(Task::New), changed = look.countOf(Task::Changed);
    const int same = look.countOf(Task::Same), onlyThere = look.countOf(Task::OnlyThere);
    QString text = counted(added, "file is", "files are") + " new, " + QString::number(changed) + " changed, "
        + QString::number(same) + " the same.";
    if (added + changed == 0)
        text = "All of it is on the stand already: " + counted(same, "file") + '.';
    if (onlyThere > 0)
        text += ' ' + counted(onlyThere, "file is", "files are") + " only on the stand and will stay there.";
    return text;
}

static QString roomText(const StandLook &look)
{
    const QString free = sizeText(look.roomThere) + " free on the stand";
    if (look.roomNeeded == 0)
        return free + '.';
    if (look.hasRoom())
        return "There is room: " + sizeText(look.roomNeeded) + " needed, " + free + '.';
    return "There is not enough room: " + sizeText(look.roomNeeded) + " needed, " + free + '.';
}

QString StandWindow::stateText() const
{
    const StandLook &look = model_->look();
    if (root_.isEmpty())
        return "Choose the folder of the stand: the one in which its start page (*.html) lies.";
    if (!look.result.ok())
        return "Nothing can be copied. " + look.result.text();
    QStringList said{countsText(look), roomText(look)};
    if (hasUnsavedChanges())
        said += "What you have changed and not saved will not come along.";
    return said.join(' ');
}

static QString listOf(const QList<OtherSong> &songs)
{
    QStringList lines;
    for (const OtherSong &song : songs)
        lines += QString::number(song.number) + " there: " + song.there
            + (song.here.isEmpty() ? ", here: none" : ", here: " + song.here);
    return lines.join('\n');
}

bool StandWindow::mayCopy() const
{
    const StandLook &look = model_->look();
    if (hasUnsavedChanges()
        && !askBeforeLoss("There are changes that have not been saved, and they would not come along. Do you "
                          "want to copy all the same?"))
        return false;
    if (!look.hasRoom()
        && !askBeforeLoss(roomText(look) + " Do you want to copy as much as there is room for?"))
        return false;
    const QList<OtherSong> others = otherSongsOn(look);
    return others.isEmpty()
        || askBeforeLoss("Under these numbers the archive on the stand has songs of other titles, and this "
                         "one takes its place. Their pages go where there are new ones. Do you want that?",
                         listOf(others));
}

// Copy
void StandWindow::copy()
{
    look();
    if (!model_->look().result.ok() || !mayCopy())
        return;
    setWorking(true);
    const StandCopy copied = copyToStand(root_, progressBox("Copying to the stand …"));
    setWorking(false);
    look();
    if (copied.notCopied.isEmpty())
        messageBox(textOf(copied));
    else
        reportBox(textOf(copied) + "\nThese files were not copied:", copied.notCopied.join('\n'));
}

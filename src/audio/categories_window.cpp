#include "audio/categories_window.h"

#include "controls/text_box.h"
#include "window/message_box.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QShortcut>

using Kind = Result::Kind;
using Outcome = CategoriesSaving::Outcome;

static constexpr int namesInColumn = 11; // as on the buttons of mp3

CategoriesWindow::CategoriesWindow(std::function<void()> renamed)
    : LayoutWindow("categories", "Categories", QSize(760, 540))
    , renamed_(std::move(renamed))
    , read_(readCategoriesOf("."))
    , state_(new QLabel)
{
    state_->setTextFormat(Qt::PlainText);
    state_->setWordWrap(true);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(state_);
    layout->addWidget(makeNames(), 1);
    layout->addLayout(makeFoot());
    showNames(read_.result.kind == Kind::Missing ? usualCategories() : read_.table.name);
    showState();
    name_[1]->setFocus();
    name_[1]->selectAll();
}

QWidget *CategoriesWindow::makeNames()
{
    auto *area = new QScrollArea;
    area->setWidgetResizable(true);
    area->setFrameStyle(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    auto *names = new QWidget;
    auto *grid = new QGridLayout(names);
    for (int k = 1; k <= categoryCount; k += 1) {
        auto *box = new TextBox(names);
        box->setFrame(true);
        box->setMinimumWidth(fontMetrics().averageCharWidth() * 14);
        box->setAccessibleName(QStringLiteral("Category %1").arg(k));
        auto *number = new QLabel(QString::number(k));
        number->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        number->setBuddy(box);
        const int row = (k - 1) % namesInColumn, column = (k - 1) / namesInColumn * 2;
        grid->addWidget(number, row, column);
        grid->addWidget(box, row, column + 1);
        connect(box, &TextBox::returnPressed, this, [this] { focusNextChild(); });
        name_[static_cast<size_t>(k)] = box;
    }
    area->setWidget(names);
    return area;
}

QLayout *CategoriesWindow::makeFoot()
{
    auto *foot = new QHBoxLayout;
    QPushButton *save = pushButton("Save");
    QPushButton *close = pushButton("Close");
    foot->addWidget(save);
    foot->addWidget(close);
    connect(save, &QPushButton::clicked, this, &CategoriesWindow::save);
    connect(new QShortcut(QKeySequence::Save, this), &QShortcut::activated, save, &QPushButton::click);
    connect(close, &QPushButton::clicked, this, &QWidget::close);
    return foot;
}

void CategoriesWindow::showNames(const CategoryNames &names)
{
    for (size_t k = 1; k <= categoryCount; k += 1)
        name_[k]->setText(names[k]);
    shown_ = boxes();
}

void CategoriesWindow::showState()
{
    const QString about =
        QStringLiteral("A song keeps the number of its category: a new name here is the new "
                       "name of its category in every song.");
    if (read_.result.ok())
        state_->setText(about);
    else if (read_.result.kind == Kind::Missing)
        state_->setText("There is no " + read_.result.file
                        + " yet. These are names to begin with; \"Save\" writes the file.\n" + about);
    else
        state_->setText(read_.result.text() + ". A category without a name is shown by its number.\n"
                        + about);
}

CategoryNames CategoriesWindow::boxes() const
{
    CategoryNames names;
    for (size_t k = 1; k <= categoryCount; k += 1)
        names[k] = name_[k]->text();
    return names;
}

// Asks before anything is lost that the file holds.
CategoriesSaving CategoriesWindow::replaceNames()
{
    CategoriesSaving saving = saveCategories(read_, boxes());
    while (saving.outcome == Outcome::Changed
           && askBeforeLoss("Another program has changed spartiti/generi.js since it was read here. Do you "
                            "want to replace the names in it by those that this window shows?")) {
        read_ = std::move(saving.onDisk);
        saving = saveCategories(read_, boxes());
    }
    return saving;
}

void CategoriesWindow::save()
{
    if (!isUnderstood(read_)
        && !askBeforeLoss(read_.result.text()
                          + ".\nDo you want to write the file anew with the 33 names that this window shows? "
                            "What stands from that line on would be lost."))
        return;
    const CategoriesSaving saving = replaceNames();
    if (saving.outcome == Outcome::Changed)
        return;
    if (saving.outcome != Outcome::Saved) {
        messageBox("The names were not saved; the file is as it was before.\n" + saving.result.text());
        return;
    }
    showNames(read_.table.name);
    showState();
    renamed_();
    messageBox("Successfully saved!");
}

void CategoriesWindow::closeEvent(QCloseEvent *event)
{
    event->ignore();
    if (boxes() == shown_ || askBeforeLoss("There are names that have not been saved. Close all the same?"))
        LayoutWindow::closeEvent(event);
}

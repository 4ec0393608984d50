#include "merge/merging.h"

#include "archive/Module1.h"
#include "archive/archive_file.h"
#include "archive/archive_operations.h"
#include "controls/image_frame.h"
#include "look/plain_text.h"
#include "text/counting.h"
#include "text/folding.h"
#include "window/message_box.h"
#include "window/progress.h"
#include "window/report_box.h"

#include <QEvent>
#include <QListWidget>
#include <QPushButton>

#include <algorithm>

merging::merging(std::function<void()> reopenMainWindow)
    : Form({"merging", "Merging", 11070, 8295, QPoint(2775, 1830)})
    , reopenMainWindow_(std::move(reopenMainWindow))
{
}

void merging::build(ControlMaker make)
{
    const QFont font = verdana(15.75);
    make.label("Label1", "Select the scores to absorb", {480, 360, 4335, 495}, font, Qt::AlignHCenter);
    List1 = make.add<QListWidget>("List1", "Scores to absorb", {120, 1200, 5055, 6135}, font);
    List1->setFrameStyle(QFrame::Box | QFrame::Plain);
    List1->setUniformItemSizes(true);
    Image1 = make.image("Image1", "Left page", {5280, 240, 5775, 7935});
    auto *Command1 = make.button("Command1", "Esc", {120, 7440, 2175, 735});
    auto *Command2 = make.button("Command2", "Absorb", {3000, 7440, 2175, 735});
    on(List1, &QListWidget::currentRowChanged, [this] { List1_Click(); });
    on(List1, &QListWidget::itemClicked, [this](QListWidgetItem *line) {
        List1->setCurrentItem(line); // a click on the box alone would not
        if (!isPageShown_)
            List1_Click();
    });
    List1->viewport()->installEventFilter(this);
    on(Command1, &QPushButton::clicked, [this] { unload(); });
    on(Command2, &QPushButton::clicked, [this] { Command2_Click(); });
    setTabOrder({List1, Command1, Command2});
}

static void tell(const MergeSource &source)
{
    const QString path = shownPath(archivePath(source.folder));
    const ArchiveTable &archive = source.archive;
    if (!archive.result.ok()) {
        messageBox("The songs of the other archive cannot be listed.\n" + archive.result.text());
    } else if (archive.irregularRecord > 0) {
        messageBox(QStringLiteral("%1 is not as it should be from title %2 on: fields may stand in the wrong "
                                  "place. It is listed as it stands.")
                       .arg(path, QString::number(archive.irregularRecord)));
    } else if (archive.endMissing) {
        messageBox(QStringLiteral("The end of %1 is missing or is not as it should be. %2 titles were read.")
                       .arg(path, QString::number(archive.count())));
    }
}

void merging::load()
{
    source = readMergeSource(Module1.mergeSourcePath);
    List1->clear();
    for (size_t p = 1; p < source.archive.records.size(); p += 1) {
        const QString title = source.archive.text(source.archive.records[p].title);
        auto *line = new QListWidgetItem(title);
        line->setCheckState(Qt::Unchecked);
        List1->addItem(line);
    }
    markKnown();
    // Or else the list would move to its first line, and show that page, as soon as it has the focus.
    List1->setCurrentIndex({});
    tell(source);
}

// What one's own archive has under the same title is in italics.
void merging::markKnown()
{
    const QHash<QString, int> own = songsByTitle();
    for (int p = 0; p < List1->count(); p += 1) {
        QListWidgetItem *line = List1->item(p);
        const int known = own.value(foldedTitle(line->text()));
        const QString mark =
            known > 0 ? QStringLiteral("also in your archive: no. %1").arg(known) : QString();
        QFont font = List1->font();
        font.setItalic(known > 0);
        line->setFont(font);
        // The line may be too short for its title.
        line->setToolTip(plainToolTip(known > 0 ? line->text() + '\n' + mark : line->text()));
        line->setData(Qt::AccessibleDescriptionRole, mark);
    }
}

// A click on the line in front shows its page anew; one on another line has shown it when it ends.
bool merging::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::MouseButtonPress)
        isPageShown_ = false;
    return Form::eventFilter(watched, event);
}

void merging::List1_Click()
{
    const int place = List1->currentRow() + 1;
    Image1->showFile(place > 0 ? pagePath(place, Page::Left, source.folder) : QString());
    isPageShown_ = true;
}

QList<int> merging::tickedSlots() const
{
    QList<int> ticked;
    for (int p = 0; p < List1->count(); p += 1) {
        if (List1->item(p)->checkState() == Qt::Checked)
            ticked += p + 1;
    }
    return ticked;
}

void merging::tellFailure(const Result &result)
{
    QString text = "Nothing was absorbed; the archive is as it was before.";
    if (result.kind != Result::Kind::Cancelled)
        text += '\n' + result.text();
    messageBox(text);
    if (wasChanged(source))
        load();
}

static QString replacedArchiveQuestion()
{
    return QStringLiteral(
               "Another program has changed spartiti/archivio.js since it was read here. Do you want "
               "to replace it by what was read and typed here, with the new songs behind it? What "
               "the other program did to it would be lost, and pages that lie under the next "
               "numbers, from %1 on, would give way to those of the new songs.")
        .arg(Module1.recCount + 1);
}

// None where the numbers are to stay as they are.
std::optional<CategoryTranslation> merging::translationOf(const QList<int> &chosen) const
{
    const auto translation = CategoryTranslation::from(source.folder);
    if (!translation)
        return {};
    const auto others = std::count_if(chosen.begin(), chosen.end(), [&](int slot) {
        const ArchiveRecord &record = source.archive.records[static_cast<size_t>(slot)];
        return translation->isOther(source.archive.text(record.category));
    });
    const QString question =
        counted(others, "song has a category with another number", "songs have categories with other numbers")
        + " here. Translate them by name?";
    return others > 0 && askYesNo(question) ? translation : std::nullopt;
}

// Absorb
void merging::Command2_Click()
{
    const QList<int> chosen = tickedSlots();
    if (const Result possible = checkAbsorb(source, chosen.size()); !possible.ok())
        return tellFailure(possible);
    if (!askYesNo("The selected tracks will be added to your archive. You want to proceed?"))
        return;
    if (wasArchiveReplaced() && !askBeforeLoss(replacedArchiveQuestion()))
        return;
    const auto categories = translationOf(chosen);
    const AbsorbReport report =
        absorb(source, chosen, progressBox("Absorbing " + counted(chosen.size(), "song")), categories);
    if (!report.result.ok())
        return tellFailure(report.result);
    if (const QString trouble = troubleText(report); !trouble.isEmpty())
        reportBox("The songs were absorbed. Some of it went otherwise than it should:", trouble);
    messageBox("The merger of the archives has been completed. You will find the newly added songs, in your "
               "Tessaline, at the end of your archive. From there you can edit the corresponding "
               "information (title, authors and tags) according to your needs.");
    reopenMainWindow_();
    markKnown();
}

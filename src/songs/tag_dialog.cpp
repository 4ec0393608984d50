#include "songs/tag_dialog.h"

#include "controls/text_box.h"
#include "text/counting.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QInputDialog>
#include <QLabel>
#include <QVBoxLayout>

QString askForTags(QWidget *parent, qsizetype songs)
{
    QDialog dialog(parent);
    dialog.setWindowTitle("Add a tag");
    auto *layout = new QVBoxLayout(&dialog);
    auto *words = new TextBox(&dialog);
    words->setFrame(true);
    words->setAccessibleName("Tag");
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    layout->addWidget(new QLabel("Words to add to the tags of " + counted(songs, "song") + ':'));
    layout->addWidget(words);
    layout->addWidget(buttons);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    words->setFocus();
    return dialog.exec() == QDialog::Accepted ? words->text() : QString();
}

QString askWhichTag(QWidget *parent, const QStringList &tags)
{
    bool isChosen = false;
    const QString tag =
        QInputDialog::getItem(parent, "Remove a tag", "Tag to be taken away:", tags, 0, false, &isChosen);
    return isChosen ? tag : QString();
}

#include "intake/contents_dialog.h"

#include "files/safe_write.h"
#include "text/counting.h"
#include "window/message_box.h"
#include "window/report_box.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>

std::optional<QList<ContentsSong>> askForContents(QWidget *parent, const QString &book, int pagesOfBook)
{
    const QString path =
        QFileDialog::getOpenFileName(parent, "Contents of " + QFileInfo(book).fileName(),
                                     QFileInfo(book).path(), "CSV (*.csv *.txt);;All files (*)");
    if (path.isEmpty())
        return {};
    bool isChosen = false;
    const int offset = QInputDialog::getInt(parent, "Contents", "Number to add to every page:", 0, -9999,
                                            9999, 1, &isChosen);
    if (!isChosen)
        return {};
    QByteArray csv;
    if (const Result read = readWhole(path, csv); !read.ok()) {
        messageBox("The contents were not read; the table is as it was.\n" + read.text());
        return {};
    }
    const Contents contents = contentsOf(csv, offset, pagesOfBook);
    if (contents.songs.isEmpty() && contents.troubles.isEmpty())
        messageBox("There are no songs in " + QFileInfo(path).fileName() + ". The table is as it was.");
    else if (!contents.troubles.isEmpty())
        reportBox(counted(contents.songs.size(), "song was", "songs were")
                      + " read. These lines were left out:",
                  contents.troubles.join('\n'));
    return contents.songs.isEmpty() ? std::nullopt : std::optional(contents.songs);
}

#include "stand/mend.h"

#include "archive/append_songs.h"
#include "audio/categories_writer.h"
#include "files/data_folder.h"
#include "files/platform.h"
#include "files/safe_write.h"
#include "stand/own_names.h"

#include <QBuffer>
#include <QFileInfo>
#include <QImage>

using Kind = Result::Kind;
using Mend = Mending::Kind;

static Result refused(const QString &reason)
{
    return Result::failed(Kind::Refused, dataFolder(), reason);
}

static Result hasCome(const QString &path)
{
    return refused(shownPath(path) + " has come meanwhile and stays as it is.");
}

// A4 in 150 dots per inch.
static Result makeEmptySheet()
{
    static constexpr QSize page(1240, 1754);
    if (!isNothingThere(emptyPagePath()))
        return hasCome(emptyPagePath());
    QImage sheet(page, QImage::Format_Grayscale8);
    sheet.fill(Qt::white);
    QBuffer bytes;
    if (!sheet.save(&bytes, "JPEG"))
        return refused("This system has nothing that writes JPEG pictures.");
    return replaceFile(emptyPagePath(), bytes.data());
}

static Result writeCategories()
{
    CategoriesReading read = readCategoriesOf(".");
    if (read.result.kind != Kind::Missing)
        return hasCome(categoriesPath());
    return saveCategories(read, usualCategories()).result;
}

static Result takeAway(const QString &name)
{
    const QFileInfo file(dataFile(name));
    if (!isLeftOver(name) || !file.isFile())
        return refused(shownPath(file.filePath()) + " is no longer what it was.");
    QFile there(file.filePath());
    return there.remove() ? Result{} : Result::failed(Kind::Unwritable, file.filePath(), there.errorString());
}

static Result finishAdding()
{
    (void)finishAppending();
    if (isMissing(arrivingPath()))
        return {};
    return refused(
        shownPath(arrivingPath())
        + " is still there: another program is just adding songs, or the folder holds other things.");
}

Result mend(const Mending &mending)
{
    switch (mending.kind) {
    case Mend::Rename:
        return moveFile(dataFile(mending.name), dataFile(mending.newName));
    case Mend::EmptySheet:
        return makeEmptySheet();
    case Mend::Categories:
        return writeCategories();
    case Mend::TakeAway:
        return takeAway(mending.name);
    case Mend::FinishAdding:
        return finishAdding();
    case Mend::None:
        break;
    }
    return refused("This can only be put right by hand.");
}

QString doneText(const Mending &mending)
{
    switch (mending.kind) {
    case Mend::Rename:
        return mending.name + " is called " + mending.newName + " now.";
    case Mend::EmptySheet:
        return "There is a white empty sheet now.";
    case Mend::Categories:
        return "There are names of categories now.";
    case Mend::TakeAway:
        return mending.name + " is gone.";
    default:
        return "Adding songs is finished.";
    }
}

#include "support/lists.h"

#include "controls/file_list.h"
#include "controls/folder_list.h"

static QStringList rowsOf(const QAbstractItemModel *model, const QModelIndex &parent = {})
{
    QStringList rows;
    for (int row = 0; row < model->rowCount(parent); row += 1) {
        const QModelIndex index = model->index(row, 0, parent);
        rows += index.data().toString();
        rows += rowsOf(model, index);
    }
    return rows;
}

QStringList shownRows(const QString &window, const QString &list)
{
    return rowsOf(control<QAbstractItemView>(window, list)->model());
}

// The middle of the last row of that name.
static QPoint placeOf(QAbstractItemView *list, const QString &name)
{
    const auto rows = list->model()->match(list->model()->index(0, 0), Qt::DisplayRole, name, -1,
                                           Qt::MatchExactly | Qt::MatchRecursive);
    if (rows.isEmpty())
        qFatal("no row %s in %s", qPrintable(name), qPrintable(list->objectName()));
    list->scrollTo(rows.constLast());
    return list->visualRect(rows.constLast()).center();
}

void clickFile(const QString &window, const QString &file, Qt::KeyboardModifiers held)
{
    auto *list = control<FileList>(window, "File1");
    QTest::mouseClick(list->viewport(), Qt::LeftButton, held, placeOf(list, file));
}

void openFolder(const QString &window, const QString &folder)
{
    auto *list = control<FolderList>(window, "Dir1");
    const QPoint place = placeOf(list, folder);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, place);
}

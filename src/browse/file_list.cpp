#include "browse/file_list.h"

#include "look/plain_text.h"
#include "text/alphabetical.h"

#include <QDir>
#include <QKeyEvent>
#include <QStringListModel>
#include <QStyledItemDelegate>

#include <algorithm>
#include <array>

// The tool-tip has the whole name.
class NameModel : public QStringListModel
{
public:
    using QStringListModel::QStringListModel;

    QVariant data(const QModelIndex &index, int role) const override
    {
        if (role == Qt::ToolTipRole)
            return plainToolTip(data(index, Qt::DisplayRole).toString());
        return QStringListModel::data(index, role);
    }
};

// A row is never wider than the list: the middle of a name that does not fit is left out.
class NameDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        return {1, QStyledItemDelegate::sizeHint(option, index).height()};
    }
};

FileList::FileList(QWidget *parent)
    : QListView(parent)
    , names_(new NameModel(this))
    , path_(QDir::currentPath())
{
    setModel(names_);
    setItemDelegate(new NameDelegate(this));
    setFrameStyle(QFrame::Box | QFrame::Plain);
    setEditTriggers(NoEditTriggers);
    setUniformItemSizes(true);
    setTextElideMode(Qt::ElideMiddle);
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, &FileList::takeSelection);
}

void FileList::setPath(const QString &folder)
{
    const QString path = QDir::cleanPath(QDir(folder).absolutePath());
    if (path != path_)
        selected_.clear();
    path_ = path;
    readFolder();
}

QString FileList::path() const
{
    return QDir::toNativeSeparators(path_);
}

QString FileList::selectedPath() const
{
    return selected_.isEmpty() ? QString() : path() + QDir::separator() + selected_;
}

void FileList::readFolder()
{
    const QStringList names =
        alphabetical(QDir(path_).entryList({pattern_}, QDir::Files | QDir::Hidden, QDir::NoSort));
    const auto row = selected_.isEmpty() ? -1 : names.indexOf(selected_);
    if (row < 0)
        selected_.clear();
    names_->setStringList(names);
    if (row >= 0)
        select(static_cast<int>(row));
}

void FileList::select(int row)
{
    setCurrentIndex(names_->index(row));
}

void FileList::takeSelection()
{
    const QModelIndexList rows = selectionModel()->selectedIndexes();
    const QString name = rows.isEmpty() ? QString() : rows.constFirst().data().toString();
    if (name.isEmpty() || name == selected_)
        return;
    selected_ = name;
    emit fileClicked();
}

void FileList::showEvent(QShowEvent *event)
{
    if (!event->spontaneous())
        readFolder();
    QListView::showEvent(event);
}

// The view's own cursor stands on the first row before anything is selected; the first key that moves
// it has to select that row rather than go past it.
void FileList::keyPressEvent(QKeyEvent *event)
{
    static constexpr std::array firstRowKeys = {Qt::Key_Down, Qt::Key_Up, Qt::Key_Home, Qt::Key_PageUp,
                                                Qt::Key_PageDown};
    const bool moves =
        std::find(firstRowKeys.begin(), firstRowKeys.end(), event->key()) != firstRowKeys.end();
    if (moves && selected_.isEmpty() && names_->rowCount() > 0)
        select(0);
    else
        QListView::keyPressEvent(event);
}

// Whatever key is held, the file that was clicked or moved to is the selected one.
QItemSelectionModel::SelectionFlags FileList::selectionCommand(const QModelIndex &index, const QEvent *) const
{
    return index.isValid() ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate;
}

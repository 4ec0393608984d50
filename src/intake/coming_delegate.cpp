#include "intake/coming_delegate.h"

#include "archive/Module1.h"
#include "audio/categories_file.h"
#include "controls/text_box.h"
#include "intake/coming_table.h"
#include "intake/coming_view.h"
#include "intake/page_images.h"
#include "look/look.h"

#include <QComboBox>
#include <QPainter>

ComingDelegate::ComingDelegate(ComingView &view, ComingTable &table, PageImages &images)
    : QStyledItemDelegate(&view)
    , view_(view)
    , table_(table)
    , images_(images)
{
    connect(&images, &PageImages::made, view.viewport(), qOverload<>(&QWidget::update));
}

// A page shows its picture in place of its name.
void ComingDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                           const QModelIndex &index) const
{
    const ComingPage page = table_.pageAt(index);
    if (!page.exists())
        return QStyledItemDelegate::paint(painter, option, index);
    const QRect cell = option.rect.adjusted(2, 2, -2, -2);
    const qreal ratio = view_.devicePixelRatioF();
    const QImage image = images_.image(page, (QSizeF(cell.size()) * ratio).toSize());
    if (image.isNull())
        return QStyledItemDelegate::paint(painter, option, index);
    QStyleOptionViewItem empty = option;
    initStyleOption(&empty, index);
    empty.text.clear();
    view_.style()->drawControl(QStyle::CE_ItemViewItem, &empty, painter, &view_);
    QRectF place({}, QSizeF(image.size()) / ratio);
    place.moveCenter(QRectF(cell).center());
    painter->drawImage(place, image);
    painter->setPen(faceColour); // the edge of white paper
    painter->drawRect(place.adjusted(-0.5, -0.5, 0.5, 0.5));
}

static QComboBox *categoryBox(QWidget *parent)
{
    auto *box = new QComboBox(parent);
    box->addItem("None");
    for (size_t k = 1; k <= categoryCount; k += 1)
        box->addItem(Module1.categoryName[k]);
    return box;
}

QWidget *ComingDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                                      const QModelIndex &index) const
{
    QWidget *editor = nullptr;
    if (ComingColumn(index.column()) == ComingColumn::Category)
        editor = categoryBox(parent);
    else
        editor = new TextBox(parent);
    editor->setFont(option.font);
    editor->setAutoFillBackground(true);
    editor->setAccessibleName(index.model()->headerData(index.column(), Qt::Horizontal).toString());
    return editor;
}

void ComingDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    if (auto *box = qobject_cast<QComboBox *>(editor))
        box->setCurrentIndex(index.data(Qt::EditRole).toInt());
    else
        QStyledItemDelegate::setEditorData(editor, index);
}

void ComingDelegate::setModelData(QWidget *editor, QAbstractItemModel *, const QModelIndex &index) const
{
    QList<int> rows = view_.chosenRows();
    if (!rows.contains(index.row()))
        rows = {index.row()};
    if (const auto *box = qobject_cast<QComboBox *>(editor)) {
        table_.setCategory(rows, box->currentIndex());
        return;
    }
    const QString text = static_cast<TextBox *>(editor)->text();
    if (text != index.data(Qt::EditRole).toString())
        table_.setText(rows, ComingColumn(index.column()), text);
}

void ComingDelegate::updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                                          const QModelIndex &) const
{
    QRect place(option.rect.left(), 0, option.rect.width(), editor->sizeHint().height());
    place.moveCenter(option.rect.center());
    editor->setGeometry(place);
}

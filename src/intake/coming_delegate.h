#pragma once

#include <QStyledItemDelegate>

class ComingTable;
class ComingView;
class PageImages;

// How the cells of the table "Songs to bring in" are painted and edited.
class ComingDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    ComingDelegate(ComingView &view, ComingTable &table, PageImages &images);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const override;
    void updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                              const QModelIndex &index) const override;

private:
    ComingView &view_;
    ComingTable &table_;
    PageImages &images_;
};

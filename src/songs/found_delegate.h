#pragma once

#include <QFont>
#include <QStyledItemDelegate>

class SongTable;

// Paints the cells of the list of songs with what is searched for in bold, and edits them with a box that
// admits what the files can carry.
class FoundDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    // For cells in this font.
    FoundDelegate(const SongTable &table, const QFont &font, QObject *parent);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    // A cell's tool-tip, or the whole of a text that its cell cuts short.
    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                   const QModelIndex &index) override;

private:
    const SongTable &table_;
    QFont bold_;
};

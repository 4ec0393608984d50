#include "songs/found_delegate.h"

#include "controls/text_box.h"
#include "look/plain_text.h"
#include "songs/song_table.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QPainter>
#include <QTextLayout>
#include <QToolTip>

FoundDelegate::FoundDelegate(const SongTable &table, QObject *parent)
    : QStyledItemDelegate(parent)
    , table_(table)
{
}

static QList<TextPart> partsToMark(const QModelIndex &index, const QString &text, const Query &query)
{
    const auto column = SongColumn(index.column());
    if (isText(column))
        return partsFound(text, query);
    const auto isNumber = [&](const Folded &word) { return word.bare.toInt() == text.toInt(); };
    const bool isFound =
        column == SongColumn::Number && std::any_of(query.words().begin(), query.words().end(), isNumber);
    return isFound ? QList<TextPart>{{0, text.size()}} : QList<TextPart>{};
}

static QList<QTextLayout::FormatRange> inBold(const QList<TextPart> &parts)
{
    QTextCharFormat bold;
    bold.setFontWeight(QFont::Bold);
    QList<QTextLayout::FormatRange> ranges;
    for (const TextPart &part : parts)
        ranges += {static_cast<int>(part.start), static_cast<int>(part.length), bold};
    return ranges;
}

static void layOut(QTextLayout &layout, const QString &text, int width)
{
    layout.setText(text);
    layout.beginLayout();
    layout.createLine().setLineWidth(width);
    layout.endLayout();
}

// What is cut off shows an ellipsis, as in a cell without bold parts.
static void drawMarked(QPainter *painter, const QStyleOptionViewItem &cell, const QRect &place,
                       const QString &text, const QList<TextPart> &parts)
{
    QTextLayout layout(QString(), cell.font);
    QTextOption option(cell.displayAlignment);
    option.setWrapMode(QTextOption::NoWrap);
    layout.setTextOption(option);
    layout.setFormats(inBold(parts));
    layOut(layout, text, place.width());
    if (layout.lineAt(0).naturalTextWidth() > place.width())
        layOut(layout, cell.fontMetrics.elidedText(text, Qt::ElideRight, place.width()), place.width());
    const bool isSelected = cell.state.testFlag(QStyle::State_Selected);
    painter->setPen(cell.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text));
    const double top = place.top() + (place.height() - layout.lineAt(0).height()) / 2;
    layout.draw(painter, QPointF(place.left(), top), {}, place);
}

void FoundDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const
{
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, index);
    const QString text = cell.text;
    const Query &query = table_.query();
    const QList<TextPart> parts =
        query.isEmpty() || text.isEmpty() ? QList<TextPart>() : partsToMark(index, text, query);
    const QStyle *style = cell.widget->style();
    if (!parts.isEmpty())
        cell.text.clear();
    style->drawControl(QStyle::CE_ItemViewItem, &cell, painter, cell.widget);
    const int margin = style->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, cell.widget) + 1;
    if (!parts.isEmpty())
        drawMarked(painter, cell, cell.rect.adjusted(margin, 0, -margin, 0), text, parts);
}

QWidget *FoundDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                                     const QModelIndex &index) const
{
    auto *editor = new TextBox(parent);
    editor->setFont(option.font);
    editor->setAccessibleName(nameOf(SongColumn(index.column())));
    return editor;
}

bool FoundDelegate::helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                              const QModelIndex &index)
{
    if (event->type() != QEvent::ToolTip || !index.isValid())
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    QString tip = index.data(Qt::ToolTipRole).toString();
    if (tip.isEmpty() && sizeHint(option, index).width() > option.rect.width())
        tip = index.data().toString();
    QToolTip::showText(event->globalPos(), plainToolTip(tip), view);
    return true;
}

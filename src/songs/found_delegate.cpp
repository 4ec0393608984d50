#include "songs/found_delegate.h"

#include "controls/text_box.h"
#include "look/plain_text.h"
#include "songs/song_table.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QPainter>
#include <QTextLayout>
#include <QToolTip>

static constexpr QChar ellipsis(0x2026);

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

// Lays out one line as wide as the place. Where the text is too long for it, the line leaves room for the
// ellipsis, which stands in a cell without bold parts too, and the result is true.
static bool layOut(QTextLayout &layout, Qt::Alignment alignment, int width)
{
    QTextOption option(alignment);
    option.setWrapMode(QTextOption::WrapAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    line.setLineWidth(width);
    const bool isTooLong = line.textLength() < layout.text().size();
    if (isTooLong)
        line.setLineWidth(width - QFontMetricsF(layout.font()).horizontalAdvance(ellipsis));
    layout.endLayout();
    return isTooLong;
}

static void drawMarked(QPainter *painter, const QStyleOptionViewItem &cell, const QRect &place,
                       const QString &text, const QList<TextPart> &parts)
{
    QTextLayout layout(text, cell.font);
    layout.setFormats(inBold(parts));
    const bool isTooLong = layOut(layout, cell.displayAlignment, place.width());
    const QTextLine line = layout.lineAt(0);
    const bool isSelected = cell.state.testFlag(QStyle::State_Selected);
    painter->setPen(cell.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text));
    const QPointF at(place.left(), place.top() + (place.height() - line.height()) / 2);
    layout.draw(painter, at);
    if (!isTooLong)
        return;
    painter->setFont(cell.font);
    painter->drawText(at + QPointF(line.naturalTextWidth(), line.ascent()), QString(ellipsis));
}

// All of a cell but its text. Only one that has the focus is more than its ground.
static void paintEmpty(QPainter *painter, QStyleOptionViewItem &cell, const QStyle &style)
{
    cell.text.clear();
    if (cell.state.testFlag(QStyle::State_HasFocus))
        style.drawControl(QStyle::CE_ItemViewItem, &cell, painter, cell.widget);
    else
        style.drawPrimitive(QStyle::PE_PanelItemViewItem, &cell, painter, cell.widget);
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
    if (parts.isEmpty()) {
        style->drawControl(QStyle::CE_ItemViewItem, &cell, painter, cell.widget);
        return;
    }
    paintEmpty(painter, cell, *style);
    const int margin = style->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, cell.widget) + 1;
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

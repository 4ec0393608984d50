#include "songs/found_delegate.h"

#include "controls/text_box.h"
#include "look/plain_text.h"
#include "songs/song_table.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QPainter>
#include <QTextLayout>
#include <QToolTip>

#include <deque>

static constexpr QChar ellipsis(0x2026);

FoundDelegate::FoundDelegate(const SongTable &table, const QFont &font, QObject *parent)
    : QStyledItemDelegate(parent)
    , table_(table)
    , bold_(font)
{
    bold_.setBold(true);
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

// Puts all of the text on one line, and returns its width.
static double layOut(QTextLayout &layout)
{
    QTextOption option;
    option.setFlags(QTextOption::IncludeTrailingSpaces);
    layout.setTextOption(option);
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
    return layout.lineAt(0).naturalTextWidth();
}

// A layout for each font, since one for all of them would look up the bold one anew in every cell.
static std::deque<QTextLayout> stretchesOf(const QString &text, const QList<TextPart> &parts,
                                           const QFont &plain, const QFont &bold)
{
    std::deque<QTextLayout> stretches;
    qsizetype from = 0;
    const auto addUpTo = [&](qsizetype end, const QFont &font) {
        if (end > from)
            stretches.emplace_back(text.mid(from, end - from), font);
        from = end;
    };
    for (const TextPart &part : parts) {
        addUpTo(part.start, plain);
        addUpTo(part.start + part.length, bold);
    }
    addUpTo(text.size(), plain);
    return stretches;
}

// Where the text is too long for the place, it ends in an ellipsis, as in a cell without bold parts.
static void drawMarked(QPainter *painter, const QStyleOptionViewItem &cell, const QRect &place,
                       std::deque<QTextLayout> stretches)
{
    const bool isSelected = cell.state.testFlag(QStyle::State_Selected);
    painter->setPen(cell.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text));
    double width = 0;
    for (QTextLayout &stretch : stretches)
        width += layOut(stretch);
    const bool isTooLong = width > place.width();
    double left = place.left();
    if (!isTooLong && cell.displayAlignment.testFlag(Qt::AlignRight))
        left += place.width() - width;
    const double end = place.left() + place.width();
    for (QTextLayout &stretch : stretches) {
        const QFontMetricsF metrics(stretch.font());
        const double next = left + stretch.lineAt(0).naturalTextWidth();
        const bool isLast = isTooLong && next + metrics.horizontalAdvance(ellipsis) > end;
        if (isLast) {
            stretch.setText(metrics.elidedText(stretch.text() + ellipsis, Qt::ElideRight, end - left));
            layOut(stretch);
        }
        const double height = stretch.lineAt(0).height();
        stretch.draw(painter, {left, place.top() + (place.height() - height) / 2});
        left = next;
        if (isLast)
            return;
    }
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
    drawMarked(painter, cell, cell.rect.adjusted(margin, 0, -margin, 0),
               stretchesOf(text, parts, cell.font, bold_));
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

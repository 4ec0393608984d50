#include "midi/midi_box.h"

#include <QFocusEvent>
#include <QToolTip>

#include <algorithm>
#include <iterator>

static constexpr QColor markColour(200, 0, 0);
static const char range[] = "0 to 127";

MidiBox::MidiBox(QWidget *parent)
    : TextBox(parent)
{
    setMaxLength(longest);
    connect(this, &QLineEdit::textChanged, this, &MidiBox::mark);
    connect(this, &QLineEdit::textEdited, this, &MidiBox::tellRange);
}

static bool isDigit(QChar character)
{
    return character >= QLatin1Char('0') && character <= QLatin1Char('9');
}

bool MidiBox::isMarked() const
{
    const QString value = text();
    return !std::all_of(value.begin(), value.end(), isDigit) || value.toInt() > 127;
}

TypedText MidiBox::admit(const QString &typed) const
{
    TypedText result;
    std::copy_if(typed.begin(), typed.end(), std::back_inserter(result.text), isDigit);
    return result;
}

void MidiBox::mark()
{
    QPalette colours;
    if (isMarked())
        colours.setColor(QPalette::Text, markColour);
    setPalette(colours);
    setAccessibleDescription(isMarked() ? QStringLiteral("Not in %1").arg(range) : QString());
}

void MidiBox::tellRange()
{
    if (isMarked())
        QToolTip::showText(mapToGlobal(QPoint(0, height())), range, this);
    else
        QToolTip::hideText();
}

void MidiBox::focusInEvent(QFocusEvent *event)
{
    TextBox::focusInEvent(event);
    entered_ = event->reason() == Qt::MouseFocusReason;
}

void MidiBox::mouseReleaseEvent(QMouseEvent *event)
{
    TextBox::mouseReleaseEvent(event);
    if (entered_ && event->button() == Qt::LeftButton && !hasSelectedText())
        selectAll();
    entered_ = false;
}

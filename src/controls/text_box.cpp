#include "controls/text_box.h"

#include <QToolTip>

#include <algorithm>
#include <limits>

TextBox::TextBox(QWidget *parent)
    : QLineEdit(parent)
{
    setFrame(false);
    setMaxLength(std::numeric_limits<int>::max());
    connect(this, &QLineEdit::textEdited, this, &TextBox::admitEdit);
    connect(this, &QLineEdit::textChanged, this, [this] { before_ = text(); });
}

// Every way of putting text in (keys, paste, drop, input method) ends here; what differs from the text
// before is what was put in.
void TextBox::admitEdit()
{
    const QString after = text();
    qsizetype start =
        std::mismatch(before_.begin(), before_.end(), after.begin(), after.end()).first - before_.begin();
    const qsizetype shorter = qMin(before_.size(), after.size()) - start;
    qsizetype tail =
        std::mismatch(before_.rbegin(), before_.rbegin() + shorter, after.rbegin()).first - before_.rbegin();
    // An accent typed behind its letter is to be composed with it.
    if (start > 0 && start < after.size() && after[start].isMark())
        start -= 1;

    const QString typed = after.mid(start, after.size() - tail - start);
    const TypedText admitted = admit(typed);
    if (admitted.text != typed) {
        setText(after.first(start) + admitted.text + after.last(tail));
        setCursorPosition(static_cast<int>(start + admitted.text.size()));
    }
    if (!admitted.leftOut.isEmpty())
        tellLeftOut(admitted.leftOut);
}

void TextBox::tellLeftOut(const QStringList &characters)
{
    static constexpr qsizetype mostShown = 10;
    const QString shown = characters.first(qMin(mostShown, characters.size())).join(QLatin1Char(' '));
    const QString tip = QStringLiteral("Left out, since the files cannot hold it: %1").arg(shown);
    QToolTip::showText(mapToGlobal(QPoint(0, height())), tip.toHtmlEscaped(), this);
}

#include "controls/text_box.h"

#include "look/plain_text.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
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

static bool isTyping(const QKeyEvent &event)
{
    const bool isShortcut =
        event.modifiers().testFlag(Qt::ControlModifier) && !event.modifiers().testFlag(Qt::AltModifier);
    return !isShortcut && !event.text().isEmpty() && (event.text()[0].isPrint() || event.text()[0].isMark());
}

// Keys and pasting are admitted before the text changes, so that undo knows nothing of what was refused,
// and a key that is refused leaves the selected text alone.
void TextBox::keyPressEvent(QKeyEvent *event)
{
    if (!isReadOnly() && event->matches(QKeySequence::Paste))
        putIn(QGuiApplication::clipboard()->text());
    else if (!isReadOnly() && isTyping(*event) && admit(event->text()).text != event->text())
        putIn(event->text());
    else
        QLineEdit::keyPressEvent(event);
}

void TextBox::inputMethodEvent(QInputMethodEvent *event)
{
    const TypedText admitted = admit(event->commitString());
    QInputMethodEvent changed(event->preeditString(), event->attributes());
    changed.setCommitString(admitted.text, event->replacementStart(), event->replacementLength());
    QLineEdit::inputMethodEvent(&changed);
    tellLeftOut(admitted.leftOut);
}

void TextBox::putIn(QString typed)
{
    // An accent typed behind its letter is composed with it.
    const int behind = cursorPosition();
    if (!typed.isEmpty() && typed[0].isMark() && !hasSelectedText() && behind > 0
        && text()[behind - 1].isLetter()) {
        setSelection(behind - 1, 1);
        typed.prepend(selectedText());
    }
    const TypedText admitted = admit(typed);
    if (!admitted.text.isEmpty())
        insert(admitted.text);
    tellLeftOut(admitted.leftOut);
}

// The ways that remain, dropping and the menu of the right button, end here. What differs from the text
// before is what was put in; text that an undo has brought back stood there before.
void TextBox::admitEdit()
{
    if (isRedoAvailable())
        return;
    const QString after = text();
    const qsizetype start =
        std::mismatch(before_.begin(), before_.end(), after.begin(), after.end()).first - before_.begin();
    const qsizetype shorter = qMin(before_.size(), after.size()) - start;
    const qsizetype tail =
        std::mismatch(before_.rbegin(), before_.rbegin() + shorter, after.rbegin()).first - before_.rbegin();
    const QString typed = after.mid(start, after.size() - tail - start);
    const TypedText admitted = admit(typed);
    if (admitted.text != typed) {
        setText(after.first(start) + admitted.text + after.last(tail));
        setCursorPosition(static_cast<int>(start + admitted.text.size()));
    }
    tellLeftOut(admitted.leftOut);
}

void TextBox::tellLeftOut(const QStringList &characters)
{
    if (characters.isEmpty())
        return;
    static constexpr qsizetype mostShown = 10;
    const QString shown = characters.first(qMin(mostShown, characters.size())).join(QLatin1Char(' '));
    const QString tip = QStringLiteral("Left out, since the files cannot hold it: %1").arg(shown);
    QToolTip::showText(mapToGlobal(QPoint(0, height())), plainToolTip(tip), this);
}

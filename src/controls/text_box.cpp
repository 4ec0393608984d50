#include "controls/text_box.h"

#include "look/plain_text.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QMenu>
#include <QMimeData>
#include <QToolTip>
#include <QUrl>

#include <algorithm>
#include <limits>

TextBox::TextBox(QWidget *parent)
    : QLineEdit(parent)
{
    setFrame(false);
    setMaxLength(std::numeric_limits<int>::max());
}

void TextBox::leaveUndoTo(QAction *undo, QAction *redo)
{
    undo_ = undo;
    redo_ = redo;
}

bool TextBox::isLeftToWindow(const QKeyEvent &event) const
{
    return undo_ && (event.matches(QKeySequence::Undo) || event.matches(QKeySequence::Redo));
}

bool TextBox::event(QEvent *event)
{
    if (event->type() != QEvent::ShortcutOverride || !isLeftToWindow(*static_cast<QKeyEvent *>(event)))
        return QLineEdit::event(event);
    event->ignore();
    return false;
}

// Whether Qt's own box would put in the key's text. Format characters come with Ctrl and Shift on some
// keyboards.
static bool isTyping(const QKeyEvent &event)
{
    const QString text = event.text();
    if (text.isEmpty())
        return false;
    const QChar::Category first = QChar::category(text.toUcs4().constFirst());
    const Qt::KeyboardModifiers held = event.modifiers() & ~Qt::ShiftModifier & ~Qt::KeypadModifier;
    return first == QChar::Other_Format || (first != QChar::Other_Control && held != Qt::ControlModifier);
}

// What enters for typed text at that caret. An accent typed behind its letter is composed with it.
TextBox::Entry TextBox::entering(const QString &typed, int caret) const
{
    const bool composes = !typed.isEmpty() && typed[0].isMark() && caret > 0 && text()[caret - 1].isLetter();
    const QString letter = composes ? text().mid(caret - 1, 1) : QString();
    return {admit(letter + typed), static_cast<int>(letter.size())};
}

void TextBox::putIn(const QString &typed)
{
    const Entry entry = entering(typed, hasSelectedText() ? 0 : cursorPosition());
    if (!entry.text.isEmpty()) {
        if (entry.composed > 0)
            setSelection(cursorPosition() - entry.composed, entry.composed);
        insert(entry.text);
    }
    tellLeftOut(entry.leftOut);
}

// Keys beyond the last pasting belong to another step, as Qt's box ends one where the caret moves.
void TextBox::endUndoStep()
{
    const int caret = cursorPosition();
    setCursorPosition(caret > 0 ? caret - 1 : 1);
    setCursorPosition(caret);
}

void TextBox::putInAsOneStep(const QString &typed)
{
    if (!hasSelectedText())
        endUndoStep();
    putIn(typed);
    if (!hasSelectedText())
        endUndoStep();
}

void TextBox::paste(QClipboard::Mode from)
{
    putInAsOneStep(QGuiApplication::clipboard()->text(from));
}

void TextBox::keyPressEvent(QKeyEvent *event)
{
    const bool isSelectionKey = event->modifiers() == (Qt::ControlModifier | Qt::ShiftModifier);
    if (isLeftToWindow(*event))
        event->ignore();
    else if (!isReadOnly() && event->matches(QKeySequence::Paste))
        paste(isSelectionKey ? QClipboard::Selection : QClipboard::Clipboard);
    else if (!isReadOnly() && isTyping(*event) && admit(event->text()).text != event->text())
        putIn(event->text());
    else
        QLineEdit::keyPressEvent(event);
}

void TextBox::inputMethodEvent(QInputMethodEvent *event)
{
    if (isReadOnly())
        return event->ignore();
    composesOverSelection_ |= hasSelectedText();
    const Entry entry =
        entering(event->commitString(), hasSelectedText() ? 0 : cursorPosition() + event->replacementStart());
    const bool isRefused = !event->commitString().isEmpty() && entry.text.isEmpty();
    QInputMethodEvent changed(event->preeditString(), event->attributes());
    if (!isRefused)
        changed.setCommitString(entry.text, event->replacementStart() - entry.composed,
                                event->replacementLength() + entry.composed);
    QLineEdit::inputMethodEvent(&changed);
    // The selection went when the input method began, for a text that has not come.
    if (isRefused && composesOverSelection_ && !hasSelectedText())
        undo();
    composesOverSelection_ &= event->commitString().isEmpty() && !event->preeditString().isEmpty();
    tellLeftOut(entry.leftOut);
}

// The middle button puts in what is selected anywhere on the screen, on systems that know that.
void TextBox::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::MiddleButton || isReadOnly()) {
        QLineEdit::mouseReleaseEvent(event);
    } else if (QGuiApplication::clipboard()->supportsSelection()) {
        deselect();
        paste(QClipboard::Selection);
    }
}

// Qt's menu with another way of pasting, and with the window's undoing if it is left to the window.
void TextBox::contextMenuEvent(QContextMenuEvent *event)
{
    QMenu *menu = createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (QAction *entry : menu->actions()) {
        QAction *instead = nullptr;
        if (entry->text().startsWith(QLineEdit::tr("&Paste"))) {
            disconnect(entry, &QAction::triggered, this, nullptr);
            connect(entry, &QAction::triggered, this, [this] { paste(QClipboard::Clipboard); });
        } else if (entry->text().startsWith(QLineEdit::tr("&Undo"))) {
            instead = undo_;
        } else if (entry->text().startsWith(QLineEdit::tr("&Redo"))) {
            instead = redo_;
        }
        if (instead) {
            menu->insertAction(entry, instead);
            menu->removeAction(entry);
        }
    }
    menu->popup(event->globalPos());
}

void TextBox::dragEnterEvent(QDragEnterEvent *event)
{
    if (std::ranges::any_of(event->mimeData()->urls(), &QUrl::isLocalFile))
        event->ignore();
    else
        QLineEdit::dragEnterEvent(event);
}

void TextBox::dropEvent(QDropEvent *event)
{
    QDragLeaveEvent leave;
    dragLeaveEvent(&leave); // takes away the caret that went along
    setCursorPosition(cursorPositionAt(event->position().toPoint()));
    event->acceptProposedAction();
    putInAsOneStep(event->mimeData()->text());
}

void TextBox::tellLeftOut(const QStringList &characters)
{
    if (characters.isEmpty())
        return;
    const QString tip =
        QStringLiteral("Left out, since the files cannot hold it: %1").arg(characters.join(QLatin1Char(' ')));
    QToolTip::showText(mapToGlobal(QPoint(0, height())), plainToolTip(tip), this);
}

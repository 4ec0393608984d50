#include "controls/combo_box.h"

#include "controls/text_box.h"

#include <QKeyEvent>
#include <QWheelEvent>

ComboBox::ComboBox(QWidget *parent)
    : QComboBox(parent)
{
    setEditable(true);
    setLineEdit(new TextBox(this));
    setCompleter(nullptr);
    setInsertPolicy(NoInsert);
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    // Qt takes a typed text that equals a row for a pick of that row, at Enter and when the focus leaves.
    disconnect(lineEdit(), &QLineEdit::editingFinished, this, nullptr);
    disconnect(lineEdit(), &QLineEdit::returnPressed, this, nullptr);
}

void ComboBox::showRow(int row, const QString &text)
{
    setCurrentIndex(row);
    setEditText(text);
}

// Qt picks the first row that comes into an empty list.
void ComboBox::addRows(const QStringList &texts)
{
    const int row = currentIndex();
    const QString text = currentText();
    addItems(texts);
    showRow(row, text);
}

void ComboBox::showText(const QString &text)
{
    showRow(findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive), text);
}

void ComboBox::empty()
{
    clear();
    showRow(-1, {});
}

void ComboBox::undoPick()
{
    showRow(rowBefore_, textBefore_);
}

void ComboBox::showPopup()
{
    rowBefore_ = currentIndex();
    textBefore_ = currentText();
    QComboBox::showPopup();
}

bool ComboBox::event(QEvent *event)
{
    if (event->type() != QEvent::ShortcutOverride)
        return QComboBox::event(event);
    const auto *key = static_cast<QKeyEvent *>(event);
    const bool isWindows = (key->matches(QKeySequence::Undo) && !lineEdit()->isUndoAvailable())
        || (key->matches(QKeySequence::Redo) && !lineEdit()->isRedoAvailable());
    if (!isWindows)
        return QComboBox::event(event);
    event->ignore();
    return true;
}

void ComboBox::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        showPopup();
        break;
    default:
        QComboBox::keyPressEvent(event);
    }
}

void ComboBox::wheelEvent(QWheelEvent *event)
{
    event->ignore();
}

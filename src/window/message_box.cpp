#include "window/message_box.h"

#include <QApplication>
#include <QMessageBox>
#include <QPointer>

// Just after a box has closed no window is active for a moment; the one in front is then that of the box.
QWidget *windowInFront()
{
    static QPointer<QWidget> last;
    if (QWidget *active = QApplication::activeWindow())
        last = active;
    return last && last->isVisible() ? last.data() : nullptr;
}

using Button = QMessageBox::StandardButton;

static int show(const QString &text, const QString &title, QMessageBox::StandardButtons buttons,
                Button byEnter)
{
    QMessageBox box(QMessageBox::NoIcon, title, text, buttons, windowInFront());
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(byEnter);
    return box.exec();
}

static bool ask(const QString &question, Button byEnter)
{
    return show(question, "Tessaline", Button::Yes | Button::No, byEnter) == Button::Yes;
}

void messageBox(const QString &text, const QString &title)
{
    show(text, title, Button::Ok, Button::Ok);
}

bool askYesNo(const QString &question)
{
    return ask(question, Button::Yes);
}

bool askBeforeLoss(const QString &question)
{
    return ask(question, Button::No);
}

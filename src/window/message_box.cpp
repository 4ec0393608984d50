#include "window/message_box.h"

#include <QApplication>
#include <QMessageBox>
#include <QPointer>

// Just after a box has closed no window is active for a moment; the one in front is then that of the box.
static QWidget *windowInFront()
{
    static QPointer<QWidget> last;
    if (QWidget *active = QApplication::activeWindow())
        last = active;
    return last && last->isVisible() ? last.data() : nullptr;
}

static int show(const QString &text, const QString &title, QMessageBox::StandardButtons buttons)
{
    QMessageBox box(QMessageBox::NoIcon, title, text, buttons, windowInFront());
    box.setTextFormat(Qt::PlainText);
    return box.exec();
}

void messageBox(const QString &text, const QString &title)
{
    show(text, title, QMessageBox::Ok);
}

bool askYesNo(const QString &question)
{
    return show(question, "Tessaline", QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
}

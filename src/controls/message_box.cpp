#include "controls/message_box.h"

#include <QApplication>
#include <QMessageBox>

static int show(const QString &text, const QString &title, QMessageBox::StandardButtons buttons)
{
    QMessageBox box(QMessageBox::NoIcon, title, text, buttons, QApplication::activeWindow());
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

#include "window/report_box.h"

#include "window/message_box.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

// Long enough for most reports, and so large that the box with its title bar keeps to the screen.
static QSize roomFor(const QPlainTextEdit &view, QSize screen)
{
    const int lines = qBound(4, view.blockCount() + 1, 24);
    return {qMin(700, screen.width() * 2 / 3),
            qMin(lines * view.fontMetrics().lineSpacing(), screen.height() * 3 / 5)};
}

void reportBox(const QString &text, const QString &report)
{
    QDialog box(windowInFront());
    box.setObjectName("report");
    box.setWindowTitle("Tessaline");
    auto *label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    auto *view = new QPlainTextEdit(report);
    view->setAccessibleName("Report");
    view->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    view->setTabChangesFocus(true);
    view->setMinimumHeight(view->fontMetrics().lineSpacing() * 4);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &box, &QDialog::accept);

    auto *layout = new QVBoxLayout(&box);
    layout->addWidget(label);
    layout->addWidget(view, 1);
    layout->addWidget(buttons);
    const QSize room = roomFor(*view, box.screen()->availableSize());
    box.resize(room.width(), room.height() + box.sizeHint().height() - view->sizeHint().height());
    buttons->button(QDialogButtonBox::Ok)->setFocus();
    box.exec();
}

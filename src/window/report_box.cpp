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

using Button = QDialogButtonBox::StandardButton;

static bool show(const QString &text, const QString &report, QDialogButtonBox::StandardButtons all,
                 Button byEnter)
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
    auto *buttons = new QDialogButtonBox(all);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &box, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &box, &QDialog::reject);

    auto *layout = new QVBoxLayout(&box);
    layout->addWidget(label);
    layout->addWidget(view, 1);
    layout->addWidget(buttons);
    const QSize room = roomFor(*view, box.screen()->availableSize());
    box.resize(room.width(), room.height() + box.sizeHint().height() - view->sizeHint().height());
    buttons->button(byEnter)->setDefault(true);
    buttons->button(byEnter)->setFocus();
    return box.exec() == QDialog::Accepted;
}

void reportBox(const QString &text, const QString &report)
{
    show(text, report, Button::Ok, Button::Ok);
}

bool askBeforeLoss(const QString &question, const QString &report)
{
    return show(question, report, Button::Yes | Button::No, Button::No);
}

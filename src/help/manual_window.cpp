#include "help/manual_window.h"

#include "help/manual_text.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>

ManualWindow::ManualWindow()
    : LayoutWindow("manual", "Manual", {860, 720})
    , search_(new QLineEdit)
    , found_(new QLabel)
    , text_(new ManualText)
{
    search_->setAccessibleName("Search");
    search_->setClearButtonEnabled(true);
    found_->setObjectName("found");
    auto *label = new QLabel("&Search");
    label->setBuddy(search_);
    auto *line = new QHBoxLayout;
    line->addWidget(label);
    line->addWidget(search_, 1);
    line->addWidget(found_);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(line);
    layout->addWidget(text_, 1);
    connect(search_, &QLineEdit::textEdited, this, [this] {
        QTextCursor from = text_->textCursor(); // the words found so far may go on
        from.setPosition(from.selectionStart());
        text_->setTextCursor(from);
        searchOn();
    });
    connect(search_, &QLineEdit::returnPressed, this, &ManualWindow::searchOn);
    search_->setFocus();
}

void ManualWindow::showChapter(const QString &anchor)
{
    comeForward(); // the place of a heading depends on the width
    text_->showHeading(anchor);
    tellFound(true);
}

// In the search line they mean nothing.
void ManualWindow::keyPressEvent(QKeyEvent *event)
{
    static constexpr int ofText[] = {Qt::Key_Up, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown};
    if (std::ranges::find(ofText, event->key()) != std::end(ofText))
        QCoreApplication::sendEvent(text_->verticalScrollBar(), event);
    else
        LayoutWindow::keyPressEvent(event);
}

void ManualWindow::searchOn()
{
    const QString words = search_->text();
    tellFound(words.isEmpty() || text_->findOn(words));
}

void ManualWindow::tellFound(bool isFound)
{
    found_->setText(isFound ? QString() : "Not in the manual");
}

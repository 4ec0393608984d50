#include "controls/control_maker.h"

#include "controls/button.h"
#include "controls/image_frame.h"
#include "controls/scroll_bar.h"
#include "controls/text_box.h"
#include "look/plain_text.h"

#include <QFrame>
#include <QLabel>

QString indexed(const QString &name, int index)
{
    return QStringLiteral("%1(%2)").arg(name).arg(index);
}

void ControlMaker::put(QWidget *control, const QString &name, Place place, const QFont &font) const
{
    control->setObjectName(name);
    control->setGeometry(place.inPixels());
    control->setFont(font);
}

QLabel *ControlMaker::label(const QString &name, const QString &text, Place place, const QFont &font,
                            Qt::Alignment alignment) const
{
    auto *label = new QLabel(parent_);
    put(label, name, place, font);
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(alignment | Qt::AlignTop);
    label->setWordWrap(true);
    label->setText(text);
    return label;
}

QPushButton *ControlMaker::button(const QString &name, const QString &text, Place place,
                                  const QString &toolTip, const QFont &font) const
{
    auto *button = new Button(parent_);
    put(button, name, place, font);
    button->setText(shownAmpersands(text));
    button->setToolTip(toolTip);
    return button;
}

TextBox *ControlMaker::textBox(const QString &name, const QString &spokenName, Place place, const QFont &font,
                               const QString &toolTip) const
{
    auto *box = add<TextBox>(name, spokenName, place, font);
    box->setToolTip(toolTip);
    return box;
}

ImageFrame *ControlMaker::image(const QString &name, const QString &spokenName, Place place) const
{
    return add<ImageFrame>(name, spokenName, place, verdana(12));
}

ScrollBar *ControlMaker::verticalScrollBar(const QString &name, const QString &spokenName, Place place) const
{
    return add<ScrollBar>(name, spokenName, place, verdana(12));
}

QFrame *ControlMaker::line(const QString &name, int left, int right, int y) const
{
    auto *line = rectangle(name, {left, y, right - left, 15});
    line->setFrameShape(QFrame::HLine);
    return line;
}

QFrame *ControlMaker::rectangle(const QString &name, Place place) const
{
    auto *outline = new QFrame(parent_);
    put(outline, name, place, verdana(12));
    outline->setFrameStyle(QFrame::Box | QFrame::Plain);
    outline->setAttribute(Qt::WA_TransparentForMouseEvents);
    outline->lower();
    return outline;
}

QWidget *ControlMaker::frame(const QString &name, Place place) const
{
    auto *frame = new QWidget(parent_);
    put(frame, name, place, verdana(12));
    return frame;
}

#pragma once

#include "look/look.h"

#include <QWidget>

class ImageFrame;
class QFrame;
class QLabel;
class QPushButton;
class ScrollBar;
class TextBox;

// The name of one control of an array of controls: "Command3(7)".
QString indexed(const QString &name, int index);

// Makes the controls of a window or a frame, each in one line: name, text, place, tool-tip, font. The
// parent owns what is made. A control that shows no name of its own takes one for screen readers.
class ControlMaker
{
public:
    explicit ControlMaker(QWidget *parent)
        : parent_(parent)
    {
    }

    QLabel *label(const QString &name, const QString &text, Place place, const QFont &font = verdana(12),
                  Qt::Alignment alignment = Qt::AlignLeft) const;
    QPushButton *button(const QString &name, const QString &text, Place place, const QString &toolTip = {},
                        const QFont &font = verdana(12)) const;
    TextBox *textBox(const QString &name, const QString &spokenName, Place place, const QFont &font,
                     const QString &toolTip = {}) const;
    ImageFrame *image(const QString &name, const QString &spokenName, Place place) const;
    ScrollBar *verticalScrollBar(const QString &name, const QString &spokenName, Place place) const;
    // A horizontal line from x `left` to x `right`, one pixel thick.
    QFrame *line(const QString &name, int left, int right, int y) const;
    // The outline of a rectangle, which lets clicks through.
    QFrame *rectangle(const QString &name, Place place) const;
    // A frame without a look of its own, for controls that stand in it.
    QWidget *frame(const QString &name, Place place) const;

    // Any other kind of control.
    template <typename Control>
    Control *add(const QString &name, const QString &spokenName, Place place, const QFont &font) const
    {
        auto *control = new Control(parent_);
        put(control, name, place, font);
        control->setAccessibleName(spokenName);
        return control;
    }

private:
    void put(QWidget *control, const QString &name, Place place, const QFont &font) const;

    QWidget *parent_;
};

#pragma once

#include "controls/text_box.h"

// A box for one MIDI value: at most three characters, whoever puts them in, and from a person only digits.
// What is not a number from 0 to 127 is marked, and kept. A click into the box takes hold of its text, so
// that the value typed next replaces it.
class MidiBox : public TextBox
{
    Q_OBJECT
public:
    static constexpr int longest = 3;

    explicit MidiBox(QWidget *parent);

    bool isMarked() const;

protected:
    TypedText admit(const QString &typed) const override;
    void focusInEvent(QFocusEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    void mark();
    void tellRange();

    bool entered_ = false; // by the mouse button that is still down
};

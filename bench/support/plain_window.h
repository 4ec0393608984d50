#pragma once

#include <QWidget>

// What the main window shows of the last of 9,999 records, made of Qt's own controls and nothing else: the
// same texts, fonts and places, the same menu.
class PlainWindow : public QWidget
{
public:
    PlainWindow();
};

// The style, colours and font of its application, as one would set them.
void applyPlainLook();

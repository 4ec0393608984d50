#pragma once

#include <QColor>
#include <QFont>
#include <QPoint>
#include <QRect>

class QApplication;

// The look that all windows share, and the unit of their places.

inline constexpr QColor lineColour(64, 149, 253); // text, lines and outlines
inline constexpr QColor faceColour(160, 203, 254); // buttons

// 15 twips are one logical pixel.
constexpr int pixels(int twips)
{
    return (twips + 7) / 15;
}

// Where a control stands in its window, in twips.
struct Place {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;

    constexpr QRect inPixels() const { return {pixels(left), pixels(top), pixels(width), pixels(height)}; }
};

// A font of p points is p × 96 / 72 logical pixels high, whatever the screen.
QFont verdana(double points);
QFont msSansSerif(double points);
QFont bold(QFont font);
QFont italic(QFont font);

// Style, colours and icon of the whole program; called once, before the first window.
void applyLook(QApplication &app);

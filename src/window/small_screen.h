#pragma once

#include <QSize>

// The largest window's width and height, menu included, in logical pixels.
inline constexpr QSize largestWindow(920, 648);

// Where the system shows everything so large that the largest window would not fit on the primary screen,
// tells Qt to show it smaller by as much as that takes, but never smaller than a screen pixel to a logical
// one. Qt hears it when the next QApplication begins: true if one must begin anew for that.
bool fitSmallScreen();

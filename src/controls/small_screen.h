#pragma once

#include <QSize>

// The largest window's width and height, menu included, in logical pixels.
inline constexpr QSize largestWindow(920, 648);

// Where text and windows are set so large that the largest window would not fit on the primary screen, tells
// Qt to show everything smaller by as much as that takes. Qt hears it when the next QApplication begins:
// true if one must begin anew for that.
bool fitSmallScreen();

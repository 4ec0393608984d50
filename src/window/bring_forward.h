#pragma once

class QWidget;

// Shows a window on top of all others, also one that was hidden or minimised.
void bringForward(QWidget *window);

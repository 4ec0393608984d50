#pragma once

#include <QString>

#include <functional>

// A box for work that takes long, modal to the program: it says what is `doing` and how far it is, and has
// a button "Cancel". It comes up after half a second, and goes with the last copy of the function. That is
// to be called from time to time with how much is done, from 0 on, of how much in all; false: the person
// wants it to stop.
std::function<bool(int done, int all)> progressBox(const QString &doing);

// While it is up, or may yet come, nothing may close a window or write a file of itself.
bool isWorkRunning();

#pragma once

#include <functional>

// What long work asks from time to time, with how much of it is done and how much it is in all; false asks
// it to stop at the next whole state, and then its result is Cancelled. Empty where nobody wants to know.
using Progress = std::function<bool(int done, int all)>;

#pragma once

#include <functional>

// Wall time, or processor time of this process and of the children it has waited for.
enum class Clock { Wall, Processor };

struct Comparison {
    const char *task;
    const char *baseline;
    double limit; // the ratio that the task may reach
    int rounds = 15; // how often each is run, in turn
    Clock clock = Clock::Wall;
    std::function<void()> prepare = {}; // run before each of the two, and not measured
};

// Runs both in turn and prints one row of the table: the median of each in milliseconds, the ratio of the
// two, the limit. Returns the ratio.
double compare(const Comparison &comparison, const std::function<void()> &task,
               const std::function<void()> &baseline);

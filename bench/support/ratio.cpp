#include "support/ratio.h"

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <sys/resource.h>
#include <vector>

static double processorMilliseconds(int who)
{
    rusage used{};
    getrusage(who, &used);
    const auto milliseconds = [](const timeval &time) {
        return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
    };
    return milliseconds(used.ru_utime) + milliseconds(used.ru_stime);
}

static double now(Clock clock)
{
    if (clock == Clock::Processor)
        return processorMilliseconds(RUSAGE_SELF) + processorMilliseconds(RUSAGE_CHILDREN);
    timespec time{};
    clock_gettime(CLOCK_MONOTONIC, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

static double measure(const Comparison &comparison, const std::function<void()> &run)
{
    if (comparison.prepare)
        comparison.prepare();
    const double start = now(comparison.clock);
    run();
    return now(comparison.clock) - start;
}

static double median(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

double compare(const Comparison &comparison, const std::function<void()> &task,
               const std::function<void()> &baseline)
{
    std::vector<double> ours;
    std::vector<double> theirs;
    for (int round = 0; round < comparison.rounds; round += 1) {
        theirs.push_back(measure(comparison, baseline));
        ours.push_back(measure(comparison, task));
    }
    const double ratio = median(ours) / median(theirs);
    std::printf("| %s | %.2f | %s | %.2f | %.2f | %.2f |\n", comparison.task, median(ours),
                comparison.baseline, median(theirs), ratio, comparison.limit);
    std::fflush(stdout);
    return ratio;
}

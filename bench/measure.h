#pragma once

#include <functional>
#include <string>
#include <vector>

namespace tarnwick::bench {

/// The median of some figures; 0 of none.
double median(std::vector<double> figures);

/// The median of the times that `runs` runs take, in microseconds, after one run that is not counted.
double median_time(int runs, const std::function<void()>& work);

/// The median of the ratios of two works that take turns, so that what else the machine does hits both alike.
double median_ratio(int runs, const std::function<void()>& work, const std::function<void()>& measure);

/// Something to measure, and what has to be done before each run of it, which is not counted.
struct Work {
    std::function<void()> run;
    std::function<void()> before;
};

/// The same of works that have to be prepared each time.
double median_ratio(int runs, const Work& work, const Work& measure);

/// Prints one line of the table: what, the ratio, its bound, and whether it is kept.
void print_ratio(const std::string& what, double ratio, double bound);

} // namespace tarnwick::bench

#include "measure.h"

#include <algorithm>
#include <chrono>
#include <cstdio>

namespace tarnwick::bench {
namespace {

double time_of(const std::function<void()>& work)
{
    using clock = std::chrono::steady_clock;
    const auto began = clock::now();
    work();
    return std::chrono::duration<double, std::micro>(clock::now() - began).count();
}

} // namespace

double median(std::vector<double> figures)
{
    if (figures.empty())
        return 0;
    std::sort(figures.begin(), figures.end());
    const size_t middle = figures.size() / 2;
    return figures.size() % 2 == 1 ? figures[middle] : (figures[middle - 1] + figures[middle]) / 2;
}

double median_time(int runs, const std::function<void()>& work)
{
    work();
    std::vector<double> times;
    for (int i = 0; i < runs; ++i)
        times.push_back(time_of(work));
    return median(times);
}

double median_ratio(int runs, const std::function<void()>& work, const std::function<void()>& measure)
{
    return median_ratio(runs, Work{work, [] {}}, Work{measure, [] {}});
}

double median_ratio(int runs, const Work& work, const Work& measure)
{
    const auto time = [](const Work& of) {
        of.before();
        return time_of(of.run);
    };
    time(work);
    time(measure);
    std::vector<double> ratios;
    for (int i = 0; i < runs; ++i) {
        const double unit = time(measure);
        ratios.push_back(time(work) / unit);
    }
    return median(ratios);
}

void print_ratio(const std::string& what, double ratio, double bound)
{
    std::printf("| %-72s | %6.2f | %5.1f | %-6s |\n", what.c_str(), ratio, bound,
                ratio <= bound ? "kept" : "MISSED");
    std::fflush(stdout);
}

} // namespace tarnwick::bench

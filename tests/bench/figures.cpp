#include "bench/figures.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <utility>

namespace inin::bench {

void print(const Figure &figure)
{
    fmt::print("{}|{}|{}|{}|{}|{}|{}\n", figure.name, figure.ours, figure.peer, figure.ratio, figure.memory,
               figure.growth, figure.aim);
    std::fflush(stdout); // the table grows while the benchmarks run
}

std::string secondsText(double seconds)
{
    return fmt::format("{:.3f} s", seconds);
}

std::string millisecondsText(double milliseconds)
{
    return fmt::format("{:.1f} ms", milliseconds);
}

std::string megabytesText(double megabytes)
{
    return fmt::format("{:.1f} MB", megabytes);
}

std::string ratioText(double ratio)
{
    return fmt::format("{:.2f}", ratio);
}

Figure raceFigure(std::string name, const Race &race, const std::string &peer, std::string aim)
{
    return {std::move(name),       secondsText(race.ours.seconds),     secondsText(race.plain.seconds) + " " + peer,
            ratioText(race.ratio), megabytesText(race.ours.megabytes), {},
            std::move(aim)};
}

double growthExponent(const std::function<Spent(std::size_t letters)> &run)
{
    constexpr int kRuns = 3;
    double n = 0, x = 0, y = 0, xx = 0, xy = 0;
    for (const std::size_t letters : {1'000U, 4'000U, 16'000U, 32'000U}) {
        double fastest = run(letters).cpuSeconds;
        for (int again = 1; again < kRuns; ++again) fastest = std::min(fastest, run(letters).cpuSeconds);
        const double size = std::log(static_cast<double>(letters)), time = std::log(fastest);
        n += 1;
        x += size;
        y += time;
        xx += size * size;
        xy += size * time;
    }
    return (n * xy - x * y) / (n * xx - x * x);
}

} // namespace inin::bench

#pragma once

#include "bench/bench_process.h"

#include <cstddef>
#include <functional>
#include <string>

namespace inin::bench {

/// A row of the table that scripts/bench prints. Cells that do not apply are empty.
struct Figure {
    std::string name, ours;
    std::string peer = {};  ///< the figure of the program to compare with, and its name
    std::string ratio = {}; ///< ours to the peer's
    std::string memory = {}, growth = {}, aim = {};
};
/// Prints the cells with bars between them.
void print(const Figure &figure);

[[nodiscard]] std::string secondsText(double seconds);
[[nodiscard]] std::string millisecondsText(double milliseconds);
[[nodiscard]] std::string megabytesText(double megabytes);
/// Two decimals.
[[nodiscard]] std::string ratioText(double ratio);
/// Times, ratio and memory of a race.
[[nodiscard]] Figure raceFigure(std::string name, const Race &race, const std::string &peer, std::string aim);

/// The exponent with which the CPU time of a program grows with the number of letters, 1 if it is proportional: the slope
/// of the line through 1,000, 4,000, 16,000 and 32,000 letters, both on logarithmic scales. `run` runs the program.
[[nodiscard]] double growthExponent(const std::function<Spent(std::size_t letters)> &run);

} // namespace inin::bench

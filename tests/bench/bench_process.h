#pragma once

#include <string>
#include <vector>

namespace inin::bench {

/// A finished child process, as the system accounts for it.
struct Spent {
    double seconds = 0;
    double megabytes = 0; ///< of memory at its peak
};

/// Runs a program to its end with its output in a file; throws when it fails.
[[nodiscard]] Spent runProcess(const std::vector<std::string> &arguments, const std::string &outputFile);

[[nodiscard]] std::string firstLine(const std::string &outputFile);

/// The run of middle length.
[[nodiscard]] Spent medianOf(std::vector<Spent> runs);

/// A program with its arguments, and the file that takes its output.
struct Contender {
    std::vector<std::string> arguments;
    std::string outputFile;
};

struct Race {
    Spent ours, plain; ///< the runs of middle length
    double ratio = 0;  ///< the middle one of the ratios, each of two runs that followed one another
};

/// Runs both in turns, so that what else the machine does weighs on both.
[[nodiscard]] Race raceOf(const Contender &ours, const Contender &plain, int runs);

} // namespace inin::bench

#pragma once

#include <string>
#include <vector>

namespace inin::bench {

/// Resources of a finished child process, as the system reports them.
struct Spent {
    double seconds = 0;
    double megabytes = 0; ///< peak memory
    double cpuSeconds = 0;
};

/// Runs a program to its end with its output in a file; throws if it fails.
[[nodiscard]] Spent runProcess(const std::vector<std::string> &arguments, const std::string &outputFile);

[[nodiscard]] std::string firstLine(const std::string &outputFile);

/// The run with the median time.
[[nodiscard]] Spent medianOf(std::vector<Spent> runs);

/// A program with its arguments, and the file for its output.
struct Contender {
    std::vector<std::string> arguments;
    std::string outputFile;
};

struct Race {
    Spent ours, plain; ///< the median runs
    double ratio = 0;  ///< the median of the ratios of consecutive runs
};

/// Runs both alternately, so that other load on the machine affects both.
[[nodiscard]] Race raceOf(const Contender &ours, const Contender &plain, int runs);

} // namespace inin::bench

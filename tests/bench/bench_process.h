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

/// The run of middle length.
[[nodiscard]] Spent medianOf(std::vector<Spent> runs);

} // namespace inin::bench

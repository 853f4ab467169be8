#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace inin::viewer {

/// What the program that wrote a letter file records beside it once the letter file is complete.
struct RunRecord {
    std::uint64_t fileSize = 0; ///< of the letter file, in bytes
    std::uint64_t letters = 0;  ///< how many it wrote
};

inline constexpr std::size_t kLargestRunRecord = 4096;

/// Reads the ASCII lines of a record: "PrintInin run 1", then "csv" with a size and "letters" with a count; other lines are
/// skipped. Nothing for another format or version, for a line that is missing, repeated or not ended, and for bad numbers.
[[nodiscard]] std::optional<RunRecord> readRunRecord(std::string_view text);

/// The record of a letter file has its path with the extension ".run".
[[nodiscard]] std::string runRecordPath(std::string_view letterFile);

} // namespace inin::viewer

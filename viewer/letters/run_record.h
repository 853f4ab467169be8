#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace inin::viewer {

/// The record that the program writes beside a letter file once the letter file is complete.
struct RunRecord {
    std::uint64_t fileSize = 0; ///< of the letter file, in bytes
    std::uint64_t letters = 0;  ///< number of letters written
};

inline constexpr std::size_t kLargestRunRecord = 4096;

/// Reads the ASCII lines of a record: "PrintInin run 1", then "csv" with a size and "letters" with a count; other lines
/// are skipped. Empty for another format or version, for a missing, repeated or unended line, and for bad numbers.
[[nodiscard]] std::optional<RunRecord> readRunRecord(std::string_view text);

/// The letter file's path with the extension ".run".
[[nodiscard]] std::string runRecordPath(std::string_view letterFile);

} // namespace inin::viewer

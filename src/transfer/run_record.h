#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace inin {

// The format of "委任状.run" next to the CSV:
//
//     PrintInin run 1
//     holder RECEPTION1 1234
//     csv 54321
//     letters 273
//
// Each line ends with LF. `holder` is the computer's name and the process id, `csv` the size of the finished CSV in
// bytes, `letters` the number of letters in it. The last two lines are missing while the CSV is being written.

struct RunHolder {
    std::string computer;
    std::string process; ///< its id
};
struct RunRecord {
    std::uint64_t fileSize = 0; ///< of the CSV, in bytes
    std::uint64_t letters = 0;
};

inline constexpr std::size_t kLargestRunRecord = 4096;

/// The path of the CSV with the extension ".run".
[[nodiscard]] std::string runRecordPath(std::string_view letterFile);

/// The lines of a run that begins.
[[nodiscard]] std::string runStartLines(const RunHolder &holder);
/// The lines that are appended when the CSV is finished.
[[nodiscard]] std::string runEndLines(const RunRecord &record);

/// The holder in a record that may be incomplete; empty without an ended line of two words.
[[nodiscard]] std::optional<RunHolder> readRunHolder(std::string_view text);
/// The numbers of a finished run; a line may end with CR LF, and other lines are skipped. Empty for another format or
/// version, for a missing, repeated or unended line, and for bad numbers.
[[nodiscard]] std::optional<RunRecord> readRunRecord(std::string_view text);

} // namespace inin

#pragma once

#include "printing/letter_row.h"
#include "shell/app.h"
#include "shell/settings.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace inin {

inline constexpr const char *kCsvFile = "委任状.csv";

/// The column titles of the CSV, in order: the names that a form document may use.
[[nodiscard]] std::span<const std::string_view> letterColumnTitles();

/// The path of a file next to the CSV: csTmpDir and the name.
[[nodiscard]] std::string transferPath(App &app, const std::string &name, WarnIfMissing warn);

/// Replaces the CSV in the temporary folder by a title line and the rows 0 to iRowCount - 1 and returns its size in
/// bytes. File errors, and error 9 if there are fewer rows, go to the caller; the part written so far remains.
std::uint64_t writeIninCsv(App &app, std::span<const IninRow> aIninRow, std::int16_t iRowCount);

} // namespace inin

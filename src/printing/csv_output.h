#pragma once

#include "printing/letter_row.h"
#include "shell/app.h"

#include <cstdint>
#include <span>
#include <string>

namespace inin {

inline constexpr const char *kCsvFile = "委任状.csv";

/// Replaces the CSV in the temporary folder by a title line and the rows 0 to iRowCount - 1. File errors go to the
/// caller, and so does error 9 when fewer rows are there; the file stays as far as it was written.
void writeIninCsv(App &app, std::span<const IninRow> aIninRow, std::int16_t iRowCount);

/// The entry of "帳票Format.ini" in the data folder: the name of another form document, empty without the file or entry.
[[nodiscard]] std::string csGetFormatFile(App &app, const std::string &csSection, const std::string &csKey);

} // namespace inin

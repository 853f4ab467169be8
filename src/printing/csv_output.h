#pragma once

#include "printing/letter_row.h"
#include "shell/app.h"

#include <span>
#include <string>

namespace inin {

inline constexpr const char *kCsvFile = "委任状.csv";

/// Replaces the CSV in the temporary folder by a title line and one line a row. File errors go to the caller; the file
/// stays as far as it was written.
void writeIninCsv(App &app, std::span<const IninRow> rows);

/// The entry of "帳票Format.ini" in the data folder: the name of another form document, empty without the file or entry.
[[nodiscard]] std::string csGetFormatFile(App &app, const std::string &csSection, const std::string &csKey);

} // namespace inin

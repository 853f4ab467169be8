#pragma once

#include "viewer/ledger/ledger_records.h"

#include <span>
#include <string>
#include <vector>

namespace inin::viewer {

/// "令和8年11月", or "令和8年11月～令和9年1月".
[[nodiscard]] std::string periodText(const MonthRange &months);
/// The letters that have not come back, in their order.
[[nodiscard]] std::vector<PrintedLetter> missingOf(std::span<const PrintedLetter> letters);
/// A table for spreadsheets: UTF-8 with its mark, a title line, every value in quotes. A value that a spreadsheet would
/// take for a formula gets a leading apostrophe.
[[nodiscard]] std::string missingCsv(std::span<const PrintedLetter> letters);

} // namespace inin::viewer

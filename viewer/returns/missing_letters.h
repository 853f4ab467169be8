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
/// A table for spreadsheets with a title line (TableLine).
[[nodiscard]] std::string missingCsv(std::span<const PrintedLetter> letters);

} // namespace inin::viewer

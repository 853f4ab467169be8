#pragma once

#include "runtime/date.h"
#include "viewer/ledger/ledger.h"

#include <chrono>
#include <string>
#include <string_view>

namespace inin::viewer {

// The file of a ledger: times as texts, faults, and how a damaged file is put aside.

/// "2026-11-20 10:32:05"; texts of later times are greater.
[[nodiscard]] std::string timeText(Date time);
/// Reads such a text; the zero date for another one.
[[nodiscard]] Date timeOf(std::string_view text);

[[nodiscard]] LedgerFault faultOf(int code);
/// The sentence for the operator.
[[nodiscard]] std::string faultSentence(LedgerFault fault, const std::string &path);

/// The record of another viewer takes milliseconds, or seconds on a busy disk; a longer lock belongs to a program that hangs.
inline constexpr std::chrono::milliseconds kPatience(5000);
/// After such a lock, the operator does not wait that long again at every step.
inline constexpr std::chrono::milliseconds kShortPatience(200);
/// How long an operation waits for another program after this fault.
[[nodiscard]] std::chrono::milliseconds patienceAfter(LedgerFault fault);

/// Renames a damaged file, and its journal, which would otherwise be applied to the next file of the name. Returns the new
/// name without its folder; empty if the file is sound after all, because another program has renewed it, or if it cannot be
/// renamed.
[[nodiscard]] std::string putAsideDamaged(const std::string &path, Date now);

} // namespace inin::viewer

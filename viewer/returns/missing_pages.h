#pragma once

#include "viewer/document/letter_set.h"
#include "viewer/ledger/ledger_records.h"

#include <span>
#include <string>

namespace inin::viewer {

/// The list of missing letters on A4 pages, for all painters: a table with a box to tick for each letter, by insurer.
/// `heading` is printed on each page. An empty list is one page with a sentence.
[[nodiscard]] LetterSet missingPages(std::span<const PrintedLetter> letters, const std::string &heading);

} // namespace inin::viewer

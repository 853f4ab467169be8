#pragma once

#include "viewer/document/letter_set.h"

#include <cstdint>
#include <string>

namespace inin::viewer {

/// A letter of rulers by which it is measured how far a printer moves what it prints: where a ruler stands on the sheet,
/// it must tell the distance to the sheet's edge. The offsets (tenths of a millimetre) are only told; whoever prints
/// moves the page by them.
[[nodiscard]] LetterSet rulerLetters(Paper paper, const std::string &printer, std::int32_t right, std::int32_t down);

} // namespace inin::viewer

#pragma once

#include "viewer/ledger/run_texts.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace inin::viewer {

/// How a letter is recognised in another run, as fingerprints of folded texts.
struct LetterKey {
    std::uint64_t person = 0;  ///< insurer and patient; 0 without a patient
    std::uint64_t address = 0; ///< distinguishes letters of one name
    std::uint64_t lasting = 0; ///< the texts that do not change every month, exactly; 0 if unknown
    std::uint64_t content = 0; ///< all texts, exactly; 0 if unknown
};
[[nodiscard]] std::vector<LetterKey> keysOf(const RunTexts &texts);

/// True for the columns of dates that change every month: period, last treatment, signature.
[[nodiscard]] bool isMonthlyColumn(std::string_view column);

/// For each letter of `now` its letter of `before`; each letter is used once. Letters of one insurer and patient are paired
/// by all texts, then by the lasting ones, by address, and finally by their order. So are the letters without a patient.
[[nodiscard]] std::vector<std::optional<std::size_t>> sameLettersBefore(std::span<const LetterKey> before,
                                                                        std::span<const LetterKey> now);

} // namespace inin::viewer

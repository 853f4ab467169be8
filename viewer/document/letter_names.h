#pragma once

#include "viewer/document/letter_set.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace inin::viewer {

/// The texts by which letters are listed and sorted, and the title of a letter: its insurer and its patient.
class LetterNames {
public:
    /// `set` must outlive this.
    explicit LetterNames(const LetterSet &set);
    /// Empty for an unreadable row and for a file without that column.
    [[nodiscard]] std::string_view insurer(std::size_t letter) const;
    [[nodiscard]] std::string_view district(std::size_t letter) const;
    [[nodiscard]] std::string_view patient(std::size_t letter) const;
    /// "3番　高松市　山田太郎"
    [[nodiscard]] std::string titleOf(std::size_t letter) const;

private:
    struct Columns {
        std::optional<std::size_t> insurer, district, patient;
    };
    [[nodiscard]] std::string_view value(std::size_t letter, std::optional<std::size_t> Columns::*column) const;

    const LetterSet &m_set;
    std::vector<Columns> m_columns; ///< one for each report
};

} // namespace inin::viewer

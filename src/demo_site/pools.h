#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace inin::site {

// What the demo data is put together from. People, towns, firms and numbers are made up; cities and prefectures are
// real ones, because the letters sort by them.

struct Word {
    std::string_view kanji;
    std::string_view kana;
};

[[nodiscard]] std::span<const Word> familyNames();
[[nodiscard]] std::span<const Word> femaleNames();
[[nodiscard]] std::span<const Word> maleNames();

struct City {
    std::string_view name; ///< with its prefecture
    std::string_view kana;
    std::int64_t insurer; ///< number of its national health insurance
};
[[nodiscard]] std::span<const City> cities();
/// Towns that stand on no map.
[[nodiscard]] std::span<const Word> towns();
[[nodiscard]] std::span<const Word> houses();

/// Kinds of insurance, as the table HOKEN numbers them.
namespace hoken {
inline constexpr std::int64_t national = 1;
inline constexpr std::int64_t association = 2;
inline constexpr std::int64_t lateStage = 5;
} // namespace hoken

struct Insurer {
    std::string_view number; ///< cIDno
    std::string_view name;
    std::string_view district; ///< empty: none, NULL in the database
    std::int64_t kind;
};
[[nodiscard]] std::span<const Insurer> nationalInsurers();
[[nodiscard]] std::span<const Insurer> lateStageInsurers();
[[nodiscard]] std::span<const Insurer> associationInsurers();

[[nodiscard]] std::span<const std::string_view> illnesses();
[[nodiscard]] std::span<const std::string_view> clinics();

} // namespace inin::site

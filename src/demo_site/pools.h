#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace inin::site {

// Word lists for the demo data. Persons, towns, firms and numbers are invented; cities and prefectures are real,
// because the letters are sorted by them.

struct Word {
    std::string_view kanji;
    std::string_view kana;
};

[[nodiscard]] std::span<const Word> familyNames();
[[nodiscard]] std::span<const Word> femaleNames();
[[nodiscard]] std::span<const Word> maleNames();

struct City {
    std::string_view name; ///< including its prefecture
    std::string_view kana;
    std::int64_t insurer; ///< number of its national health insurer
};
[[nodiscard]] std::span<const City> cities();
/// Invented towns.
[[nodiscard]] std::span<const Word> towns();
[[nodiscard]] std::span<const Word> houses();

/// Kinds of insurance with their numbers in the table HOKEN.
namespace hoken {
inline constexpr std::int64_t national = 1;
inline constexpr std::int64_t association = 2;
inline constexpr std::int64_t lateStage = 5;
} // namespace hoken

struct Insurer {
    std::string_view number; ///< cIDno
    std::string_view name;
    std::string_view district; ///< empty: NULL in the database
    std::int64_t kind;
};
[[nodiscard]] std::span<const Insurer> nationalInsurers();
[[nodiscard]] std::span<const Insurer> lateStageInsurers();
[[nodiscard]] std::span<const Insurer> associationInsurers();

[[nodiscard]] std::span<const std::string_view> illnesses();
[[nodiscard]] std::span<const std::string_view> clinics();

} // namespace inin::site

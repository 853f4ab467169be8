#pragma once

#include "demo_site/calendar.h"
#include "demo_site/dice.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace inin::site {

/// The options of `make`; the same order gives the same rows.
struct SiteOrder {
    std::int64_t patients = 300;
    std::uint64_t seed = 1;
    YearMonth month;
    std::int64_t staff = 0; ///< of the branch, without the blank row; 0: derived from the number of patients
};

/// The branch of a demo site, as in "BASEID".
inline constexpr std::int64_t kBranchCode = 1;
inline constexpr std::int64_t kBranchSubCode = 1;

/// Selects the random generator of a row.
enum class Kind : std::uint64_t { patient = 1, patientColumns, staff, visits, company };
[[nodiscard]] inline Dice diceFor(const SiteOrder &order, Kind kind, std::int64_t row)
{
    return {order.seed, static_cast<std::uint64_t>(kind), static_cast<std::uint64_t>(row)};
}

struct PersonName {
    std::string kanji;
    std::string kana;
};

struct Home {
    std::string postalCode;
    std::string address1;
    std::string address2; ///< building and room, usually empty
    std::string kana;
    std::string telephone;
    /// Numbers of the city's national health insurer and late-stage insurer.
    std::string_view nationalInsurer;
    std::string_view lateStageInsurer;
};

struct Insurer {
    std::string_view number; ///< cIDno
    std::string_view name;
    std::string_view district; ///< empty: NULL in the database
    std::int64_t kind = 0;     ///< as numbered in the table HOKEN
};

[[nodiscard]] PersonName makeName(Dice &dice, bool isFemale);
[[nodiscard]] Home makeHome(Dice &dice);
/// 000-0000-xxxx: not a valid telephone number.
[[nodiscard]] std::string makeTelephone(Dice &dice);
[[nodiscard]] std::string makeDigits(Dice &dice, int count);

/// A patient before being split into columns.
struct Patient {
    std::int64_t number = 0;
    bool isFemale = false;
    PersonName name;
    Home home;
    Day birthday;
    PersonName householder;
    bool isOwnHouseholder = true;
    Insurer insurer;
    std::array<std::int64_t, 3> staff{}; ///< the first is in charge
    std::int64_t agent = 0;              ///< nIDNo of CORP; may refer to a missing row
    Day start;
    std::optional<Day> expire;
    bool isAcupuncture = false;
    std::uint8_t weekdays = 0; ///< visiting days: bit 1 is Monday, bit 6 is Saturday
};

/// Derived only from the order and the number.
[[nodiscard]] Patient makePatient(const SiteOrder &order, std::int64_t number);
[[nodiscard]] std::int64_t staffCount(const SiteOrder &order);

} // namespace inin::site

#pragma once

#include "demo_site/calendar.h"
#include "demo_site/dice.h"
#include "demo_site/pools.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace inin::site {

/// What `make` was asked for; the same order gives the same rows.
struct SiteOrder {
    std::int64_t patients = 300;
    std::uint64_t seed = 1;
    YearMonth month;
    std::int64_t staff = 0; ///< of the branch, the blank row not counted; 0: as many as so many patients need
};

/// The branch of a demo site, as "BASEID" names it.
inline constexpr std::int64_t kBranchCode = 1;
inline constexpr std::int64_t kBranchSubCode = 1;

/// Which rows throw which dice.
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
    std::string address2; ///< a house and room, mostly empty
    std::string kana;
    std::string telephone;
    const City *city = nullptr;
};

[[nodiscard]] PersonName makeName(Dice &dice, bool isFemale);
[[nodiscard]] Home makeHome(Dice &dice);
/// 000-0000-xxxx: a form that no telephone number has.
[[nodiscard]] std::string makeTelephone(Dice &dice);
[[nodiscard]] std::string makeDigits(Dice &dice, int count);

/// A patient before he is spread over the columns of his row.
struct Patient {
    std::int64_t number = 0;
    bool isFemale = false;
    PersonName name;
    Home home;
    Day birthday;
    PersonName householder;
    bool isOwnHouseholder = true;
    const Insurer *insurer = nullptr;
    std::array<std::int64_t, 3> staff{}; ///< the first is the main one
    std::int64_t agent = 0;              ///< nIDNo of CORP; may point nowhere
    Day start;
    std::optional<Day> expire;
    bool isAcupuncture = false;
    std::uint8_t weekdays = 0; ///< bit 1 is Monday, bit 6 is Saturday: the days of his visits
};

/// Everything follows from the order and the number.
[[nodiscard]] Patient makePatient(const SiteOrder &order, std::int64_t number);
[[nodiscard]] std::int64_t staffCount(const SiteOrder &order);

} // namespace inin::site

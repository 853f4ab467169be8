#pragma once

#include "demo_site/people.h"
#include "demo_site/row_target.h"

#include <span>
#include <string_view>

namespace inin::site {

/// A column of RIYOUSHA and its value. Random values are drawn in table order.
struct DemoPatientColumn {
    std::string_view name;
    Cell (*value)(const Patient &patient, Dice &dice);
};
/// Name, address, householder, place on the map, staff, insurance numbers.
[[nodiscard]] std::span<const DemoPatientColumn> personColumns();
/// Illness, treatment, consents, certifier and applicant, bank, later columns.
[[nodiscard]] std::span<const DemoPatientColumn> careColumns();

/// Fills RIYOUSHA and RIYOUSHA_SUB.
void writePatients(RowTarget &database, const SiteOrder &order);

// Value makers that several columns share.
template <int Low, int High> Cell number(const Patient &, Dice &dice)
{
    return std::int64_t{dice.between(Low, High)};
}
template <int Count> Cell digits(const Patient &, Dice &dice)
{
    return makeDigits(dice, Count);
}
inline Cell nothing(const Patient &, Dice &)
{
    return kNull;
}
inline Cell telephone(const Patient &, Dice &dice)
{
    return makeTelephone(dice);
}
inline Cell postalCode(const Patient &, Dice &dice)
{
    return "000-" + makeDigits(dice, 4);
}
/// A day in this range of days after the start of the treatment.
template <int Low, int High> Cell dayAfterStart(const Patient &patient, Dice &dice)
{
    return isoText(patient.start + std::chrono::days{dice.between(Low, High)});
}
inline Cell textOrNull(std::string_view value)
{
    return value.empty() ? Cell{kNull} : Cell{std::string(value)};
}

} // namespace inin::site

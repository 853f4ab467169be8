#pragma once

#include "support/fake_database.h"

#include <utility>
#include <vector>

namespace inin {

// What a FakeDatabase answers to the statements that fill the lists of the conditions screen.

/// The staff list's answer: number and name of each, all other columns NULL.
[[nodiscard]] FakeResult staffMembers(const std::vector<std::pair<Variant, Variant>> &numbersAndNames);
/// The insurance list's answer: kind and label of each.
[[nodiscard]] FakeResult insuranceKinds(const std::vector<std::pair<Variant, Variant>> &kindsAndLabels);

/// Which statement is which, by a part that no other has.
inline constexpr const char *kStaffSql = "STAFF.cAdress1 as cAdress1";
inline constexpr const char *kInsuranceSql = "HOKEN.cType as cType";

} // namespace inin

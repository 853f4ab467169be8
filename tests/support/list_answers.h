#pragma once

#include "support/fake_database.h"

#include <utility>
#include <vector>

namespace inin {

// The answers of a FakeDatabase to the statements that fill the lists of the conditions screen.

/// The answer for the staff list: number and name of each member, all other columns NULL.
[[nodiscard]] FakeResult staffMembers(const std::vector<std::pair<Variant, Variant>> &numbersAndNames);
/// The answer for the insurance list: kind and label of each.
[[nodiscard]] FakeResult insuranceKinds(const std::vector<std::pair<Variant, Variant>> &kindsAndLabels);

/// Texts that identify the two statements.
inline constexpr const char *kStaffSql = "STAFF.cAdress1 as cAdress1";
inline constexpr const char *kInsuranceSql = "HOKEN.cType as cType";

} // namespace inin

#pragma once

#include "master/staff_row.h"
#include "master/table_statements.h"

#include <cstdint>
#include <span>

namespace inin {

inline constexpr TableShape kStaff{"STAFF"};

/// A column of STAFF, and the reads that fill its property.
struct StaffColumn : TableColumn<cD_STAFF> {
    bool grid;
    bool read;
    bool allBranches;
};

/// The columns of STAFF in the order of a write, and the joined name of the branch.
[[nodiscard]] std::span<const StaffColumn> staffColumns();

enum class StaffRead { grid, read, allBranches };

/// The select list of a read.
[[nodiscard]] SelectList<cD_STAFF> staffSelectList(StaffRead read);

} // namespace inin

#pragma once

#include "faults/fault_plan.h"

namespace inin {

/// While it exists, the calls by which this process changes files follow a plan: creating, writing, truncating, flushing
/// and closing a file, renaming, linking and removing a name. Calls of the libraries are included, such as those of SQLite.
/// Only one may exist at a time.
class FaultySystemCalls {
public:
    enum class Fault {
        failure, ///< the call fails as on a full or damaged disk
        killed   ///< the process is killed before the call, or after half of a write
    };
    explicit FaultySystemCalls(FaultPlan &plan, Fault fault = Fault::failure);
    FaultySystemCalls(const FaultySystemCalls &) = delete;
    FaultySystemCalls &operator=(const FaultySystemCalls &) = delete;
    ~FaultySystemCalls();
};

} // namespace inin

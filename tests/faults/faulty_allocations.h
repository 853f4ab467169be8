#pragma once

#include <cstddef>

namespace inin {

/// While it exists, one allocation of this process fails with std::bad_alloc, unless it is the toolkit's own. Only one may
/// exist at a time.
class FaultyAllocations {
public:
    /// The allocation of this number fails, 1 is the first; 0 for none.
    explicit FaultyAllocations(std::size_t failing);
    FaultyAllocations(const FaultyAllocations &) = delete;
    FaultyAllocations &operator=(const FaultyAllocations &) = delete;
    ~FaultyAllocations();

    /// The allocations during the life of the last one.
    [[nodiscard]] static std::size_t count();
    /// True if the allocation has failed; false if it was the toolkit's.
    [[nodiscard]] static bool hasFailed();
};

/// The allocations that are not freed.
[[nodiscard]] std::ptrdiff_t liveAllocations();

} // namespace inin

#pragma once

#include "runtime/runtime_error.h"

#include <cstdint>

namespace inin {

/// The number of the RuntimeError that `action` raises, 0 when it raises none.
template <class Action> std::int32_t errorOf(Action &&action)
try {
    static_cast<void>(action());
    return 0;
} catch (const RuntimeError &error) {
    return error.number();
}

} // namespace inin

#pragma once

#include "runtime/runtime_error.h"

#include <cstdint>
#include <string>

namespace inin {

/// The number of the RuntimeError that `action` throws, 0 for none.
template <class Action> std::int32_t errorOf(Action &&action)
try {
    static_cast<void>(action());
    return 0;
} catch (const RuntimeError &error) {
    return error.number();
}

/// The description of the RuntimeError that `action` throws, empty for none.
template <class Action> std::string errorWordsOf(Action &&action)
try {
    static_cast<void>(action());
    return {};
} catch (const RuntimeError &error) {
    return error.description();
}

} // namespace inin

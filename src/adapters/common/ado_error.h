#pragma once

#include "platform/database.h"

#include <cstdint>
#include <vector>

namespace inin {

/// The error numbers of ADO itself, independent of the provider.
namespace ado_error {
inline constexpr std::int32_t transactionRunning = -2147168237;
inline constexpr std::int32_t noTransaction = -2147168242;
inline constexpr std::int32_t badArgument = 3001;
inline constexpr std::int32_t notInThisContext = 3219;
} // namespace ado_error

/// ADO's default, in seconds.
inline constexpr std::int32_t kDefaultCommandTimeout = 30;

/// Makes `error` the only entry of the list and throws it as a RuntimeError.
[[noreturn]] void raise(std::vector<ProviderError> &errors, ProviderError error);

// Errors of ADO itself, which do not change the error list.
[[noreturn]] void raiseClosed();
[[noreturn]] void raiseOpen();

} // namespace inin

#pragma once

#include "platform/database.h"

#include <cstdint>
#include <vector>

namespace inin {

/// Numbers that ADO gives by itself, whatever the provider.
namespace ado_error {
inline constexpr std::int32_t transactionRunning = -2147168237;
inline constexpr std::int32_t noTransaction = -2147168242;
inline constexpr std::int32_t badArgument = 3001;
inline constexpr std::int32_t notInThisContext = 3219;
} // namespace ado_error

/// ADO's own default, in seconds.
inline constexpr std::int32_t kDefaultCommandTimeout = 30;

/// Makes `error` the only entry of the list and raises it as a RuntimeError.
[[noreturn]] void raise(std::vector<ProviderError> &errors, ProviderError error);

// ADO's own refusals, which leave the error list as it is.
[[noreturn]] void raiseClosed();
[[noreturn]] void raiseOpen();

} // namespace inin

#pragma once

#include "runtime/runtime_error.h"

#include <cstdint>

namespace inin {

/// One of DAO's numbers with its words.
[[nodiscard]] RuntimeError daoError(std::int32_t number);
/// A provider's failure under DAO's number, with the provider's own words; another error as it is.
[[nodiscard]] RuntimeError asDaoError(const RuntimeError &error);

/// Runs an operation of a provider; what it raises goes on under DAO's number.
template <class Operation> auto withDaoErrors(Operation &&operation)
try {
    return operation();
} catch (const RuntimeError &error) {
    throw asDaoError(error);
}

} // namespace inin

#pragma once

#include "runtime/runtime_error.h"

#include <cstdint>

namespace inin {

/// The error of one of DAO's numbers, with its description.
[[nodiscard]] RuntimeError daoError(std::int32_t number);
/// Gives a provider's failure DAO's number and keeps the provider's description. Any other error is unchanged.
[[nodiscard]] RuntimeError asDaoError(const RuntimeError &error);

/// Runs an operation of a provider and rethrows its RuntimeError under DAO's number.
template <class Operation> auto withDaoErrors(Operation &&operation)
try {
    return operation();
} catch (const RuntimeError &error) {
    throw asDaoError(error);
}

} // namespace inin

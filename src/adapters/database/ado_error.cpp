#include "adapters/database/ado_error.h"

#include "runtime/runtime_error.h"

namespace inin {

void raise(std::vector<ProviderError> &errors, ProviderError error)
{
    errors.assign(1, error);
    throw RuntimeError(error.Number, error.Description);
}

void raiseClosed()
{
    throw RuntimeError(error_number::closedObject);
}

void raiseOpen()
{
    throw RuntimeError(error_number::openObject);
}

} // namespace inin

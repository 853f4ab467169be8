#include "adapters/native/native_platform.h"
#include "adapters/native/no_automation.h"

namespace inin {

std::unique_ptr<Automation> makeSystemAutomation()
{
    return makeNoAutomation();
}

} // namespace inin

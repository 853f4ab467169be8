#include "adapters/common/no_automation.h"
#include "adapters/system/system_platform.h"

namespace inin {

std::unique_ptr<Automation> makeSystemAutomation()
{
    return makeNoAutomation();
}

} // namespace inin

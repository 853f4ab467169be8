#include "adapters/native/native_platform.h"
#include "adapters/native/no_automation.h"

std::unique_ptr<inin::Automation> inin::makeSystemAutomation()
{
    return makeNoAutomation();
}

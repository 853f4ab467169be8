#include "adapters/native/no_automation.h"
#include "runtime/runtime_error.h"

namespace inin {

namespace {

class NoAutomation : public Automation {
public:
    std::unique_ptr<AutomationObject> create(const std::string &) override
    {
        throw RuntimeError(error_number::automationCannotCreate);
    }
};

} // namespace

std::unique_ptr<Automation> makeNoAutomation()
{
    return std::make_unique<NoAutomation>();
}

} // namespace inin

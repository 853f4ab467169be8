#pragma once

#include "runtime/variant.h"

#include <memory>
#include <span>
#include <string>

namespace inin {

/// A late-bound object: its members are looked up by name at each call.
class AutomationObject {
public:
    AutomationObject() = default;
    AutomationObject(const AutomationObject &) = delete;
    AutomationObject &operator=(const AutomationObject &) = delete;
    virtual ~AutomationObject() = default;
    virtual Variant get(const std::string &member) = 0;
    virtual void set(const std::string &member, const Variant &value) = 0;
    virtual Variant call(const std::string &member, std::span<const Variant> arguments) = 0;
};

class Automation {
public:
    Automation() = default;
    Automation(const Automation &) = delete;
    Automation &operator=(const Automation &) = delete;
    virtual ~Automation() = default;
    /// Error 429 for a program id that the system does not know.
    [[nodiscard]] virtual std::unique_ptr<AutomationObject> create(const std::string &programId) = 0;
};

} // namespace inin

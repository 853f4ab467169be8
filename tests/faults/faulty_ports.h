#pragma once

#include "faults/fault_plan.h"
#include "platform/platform.h"

#include <functional>
#include <memory>
#include <string>

namespace inin {

/// The description of every run-time error that a faulty port raises.
inline constexpr const char *kFaultText = "故障";

/// Ports that forward to those of a platform. Each operation that can fail follows the plan and fails as its port
/// describes: by a run-time error or by its result. The ports without a failure are the original ones.
class FaultyPorts {
public:
    FaultyPorts(const Platform &inner, FaultPlan &plan);
    FaultyPorts(const FaultyPorts &) = delete;
    FaultyPorts &operator=(const FaultyPorts &) = delete;
    ~FaultyPorts();

    [[nodiscard]] Platform platform();
    /// Called with the command line before a program is started.
    std::function<void(const std::string &commandLine)> onStart = [](const std::string &) {};

private:
    Platform m_inner;
    std::unique_ptr<Windows> m_windows;
    std::unique_ptr<Database> m_database;
    std::unique_ptr<Profile> m_profile;
    std::unique_ptr<Files> m_files;
    std::unique_ptr<Processes> m_processes;
};

} // namespace inin

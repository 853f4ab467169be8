#pragma once

#include "scenarios/play.h"
#include "scenarios/temporary_site.h"

#include <string>
#include <vector>

namespace inin {

/// The record of a driver: the events of each step, in the order of the steps, one JSON object each.
struct PlayRecord {
    std::vector<std::vector<std::string>> events;
    /// True when a form was still open after the last step and the play has no step for the end of its commands.
    bool ranOutOfCommands = false;
    int exitCode = 0;
    std::string errors;
};

/// A driver plays a play: without windows, or by operating the real windows.
class PlayDriver {
public:
    PlayDriver() = default;
    PlayDriver(const PlayDriver &) = delete;
    PlayDriver &operator=(const PlayDriver &) = delete;
    virtual ~PlayDriver() = default;
    [[nodiscard]] virtual PlayRecord run(const Play &play, const TemporarySite &site) = 0;
};

} // namespace inin

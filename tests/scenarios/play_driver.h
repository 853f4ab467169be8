#pragma once

#include "scenarios/play.h"
#include "scenarios/temporary_site.h"

#include <string>
#include <vector>

namespace inin {

/// What a driver saw: the events of each step, in the play's order of steps, one JSON object each.
struct PlayRecord {
    std::vector<std::vector<std::string>> events;
    /// A form was still open after the last step, and the play has no step for the end of its commands.
    bool ranOutOfCommands = false;
    int exitCode = 0;
    std::string errors;
};

/// Something that can play: the screen without a window, or a real window that is driven.
class PlayDriver {
public:
    PlayDriver() = default;
    PlayDriver(const PlayDriver &) = delete;
    PlayDriver &operator=(const PlayDriver &) = delete;
    virtual ~PlayDriver() = default;
    [[nodiscard]] virtual PlayRecord run(const Play &play, const TemporarySite &site) = 0;
};

} // namespace inin

#pragma once

#include "platform/platform.h"
#include "scenarios/play_driver.h"

#include <functional>
#include <memory>

namespace inin {

/// Plays without windows, on the embedded database, in this process.
class ScriptDriver : public PlayDriver {
public:
    ScriptDriver();

    /// Wraps the program's database; empty for none.
    std::function<std::unique_ptr<Database>(std::unique_ptr<Database>)> wrapDatabase;
    /// The program; a test may change the platform that it gets.
    std::function<void(const Platform &)> program;
    /// Called before the command of that number (1 is the first), to change the site while the screen is open.
    std::function<void(std::size_t command)> onCommand;

    [[nodiscard]] PlayRecord run(const Play &play, const TemporarySite &site) override;
};

} // namespace inin

#pragma once

#include "platform/database.h"
#include "scenarios/play_driver.h"

#include <functional>
#include <memory>

namespace inin {

/// Plays the screen without a window, on the embedded database, in this process.
class ScriptDriver : public PlayDriver {
public:
    /// Stands between the program and its database, or leaves it as it is.
    std::function<std::unique_ptr<Database>(std::unique_ptr<Database>)> wrapDatabase;
    /// Run before the command of that number, 1 being the first: what befalls the site while the screen is open.
    std::function<void(std::size_t command)> onCommand;

    [[nodiscard]] PlayRecord run(const Play &play, const TemporarySite &site) override;
};

} // namespace inin

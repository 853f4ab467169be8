#pragma once

#include "scenarios/play_driver.h"

namespace inin {

/// Plays the screen without a window, on the embedded database, in this process.
class ScriptDriver : public PlayDriver {
public:
    [[nodiscard]] PlayRecord run(const Play &play, const TemporarySite &site) override;
};

} // namespace inin

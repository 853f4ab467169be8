#pragma once

#include "scenarios/play_driver.h"

namespace inin::qt {

/// Plays the real windows by simulated clicks and keys, on the embedded database, in this process.
class WindowDriver : public PlayDriver {
public:
    [[nodiscard]] PlayRecord run(const Play &play, const TemporarySite &site) override;
};

} // namespace inin::qt

#pragma once

#include "scenarios/play_driver.h"

#include <string>

namespace inin {

/// The first difference between what a play wants and what was seen, with both texts; empty when there is none.
/// The site's folder is "$APP" in the play's events and files.
[[nodiscard]] std::string firstDifference(const Play &play, const PlayRecord &record, const TemporarySite &site);

} // namespace inin

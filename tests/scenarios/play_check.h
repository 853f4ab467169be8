#pragma once

#include "scenarios/play_driver.h"

#include <string>

namespace inin {

/// The first difference between the expectations of a play and the record, with both texts; empty when there is none.
/// "$APP" in the play's events and files is the site's folder.
[[nodiscard]] std::string firstDifference(const Play &play, const PlayRecord &record, const TemporarySite &site);

} // namespace inin

#pragma once

#include "adapters/qt/event_edge.h"
#include "runtime/date.h"

#include <functional>
#include <string>

namespace inin::qt {

/// The services that the windows need from the rest of the program.
struct ViewServices {
    EventEdge &edge;
    std::function<Date()> today;
    /// Converts a path of the suite, with backslashes, to a path of this system.
    std::function<std::string(const std::string &)> systemPath;
    /// Called before a window or box with text is shown. Empty when the fonts are ready.
    std::function<void()> beforeText = {};
};

} // namespace inin::qt

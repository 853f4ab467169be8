#pragma once

#include "adapters/qt/event_edge.h"
#include "runtime/date.h"

#include <functional>
#include <string>

namespace inin::qt {

/// What the windows ask of the rest of the program.
struct ViewServices {
    EventEdge &edge;
    std::function<Date()> today;
    /// A path of the suite, with backslashes, as this system writes it.
    std::function<std::string(const std::string &)> systemPath;
    /// Called before a window or a box with text in it; without it the letters are ready.
    std::function<void()> beforeText = {};
};

} // namespace inin::qt

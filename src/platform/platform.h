#pragma once

#include "platform/automation.h"
#include "platform/clock.h"
#include "platform/database.h"
#include "platform/files.h"
#include "platform/locale.h"
#include "platform/message_boxes.h"
#include "platform/processes.h"
#include "platform/profile.h"
#include "platform/windows.h"

namespace inin {

/// All ports that the logic uses, passed down through the constructors. app/ builds the adapters and keeps them alive
/// while the logic runs.
struct Platform {
    MessageBoxes &boxes;
    Windows &windows;
    Database &database;
    Profile &profile;
    Files &files;
    Processes &processes;
    Clock &clock;
    Locale &locale;
    Automation &automation;
};

} // namespace inin

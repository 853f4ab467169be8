#pragma once

namespace inin::qt {

// Messages in the terms of the operating system that the program runs on.

/// In English too: without a Japanese font the Japanese text is unreadable.
extern const char *const kWhatToInstall;
/// A line for the standard error stream.
extern const char *const kNoScreen;

} // namespace inin::qt

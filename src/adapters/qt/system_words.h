#pragma once

namespace inin::qt {

// What a person is told in the words of the system that the program runs on.

/// In English too, for without the letters nobody can read the Japanese.
extern const char *const kWhatToInstall;
/// A line for the standard error.
extern const char *const kNoScreen;

} // namespace inin::qt

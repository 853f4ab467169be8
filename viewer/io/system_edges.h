#pragma once

#include <string>

namespace inin::viewer {

// The program's environment: streams and screen. All text is UTF-8.

/// Prepares the standard streams. Must be called before any file is opened. A GUI program that was started from a console
/// then writes to it, and a write beyond the user's file size limit fails instead of killing the program.
void prepareStreams();
/// Shows an error on the error output, or in a message box if there is none.
void showFailure(const std::string &sentence);
/// True when a window can be shown.
[[nodiscard]] bool hasScreen();
/// True when the starting program requests a maximised window, which only Windows supports. Requests for a minimised window
/// are ignored: they come with a print, whose dialog must be visible.
[[nodiscard]] bool startsMaximised();

} // namespace inin::viewer

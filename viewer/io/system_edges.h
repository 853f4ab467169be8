#pragma once

#include <string>
#include <vector>

namespace inin::viewer {

// Where the program meets the system that started it. Text is UTF-8 inside, whatever the system hands over.

/// The words of the command line; the first is the name that the program was started by, which says what it is to do.
[[nodiscard]] std::vector<std::string> commandWords(int argc, char **argv);
/// Prepares the standard streams; to be called before a file is opened. A program with windows that was started from a
/// console writes there, and a write beyond the user's limit fails instead of ending the program.
void prepareStreams();
/// Shows the user why the program does not do what it was started for: on the error output, or in a box where there is
/// none.
void tellFailure(const std::string &sentence);
/// A window can be shown.
[[nodiscard]] bool hasScreen();
/// The program that started this one wishes its window over the whole screen; only Windows carries such a wish. The wish
/// for a small one is not asked for: it comes with a print, whose dialog must be seen.
[[nodiscard]] bool startsMaximised();
/// A variable of the environment; empty when it is missing.
[[nodiscard]] std::string environmentText(const std::string &name);

} // namespace inin::viewer

#pragma once

#include <cstdio>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace inin {

// Where a program meets the system that started it: text is UTF-8 inside, whatever the system hands over.

/// The words of the command line after the program's name.
[[nodiscard]] std::vector<std::string> programArguments(int argc, char **argv);
/// The program's own file; empty when the system does not provide it.
[[nodiscard]] std::filesystem::path programFile();

/// Prepares the standard streams; to be called before the program opens any file. The streams carry bytes as they are
/// written, and a console shows them as UTF-8. A stream that the starter left closed fails on every access, but its
/// descriptor is taken: otherwise the next file to be opened would get it, and with it all that is printed there.
void prepareStandardStreams();

/// Prints a line. A failure is left to the stream's error flag, which flushOutput() reports for standard output; a
/// message that standard error does not take is dropped, because there is no further place to print it.
void printLine(std::FILE *stream, std::string_view line) noexcept;
/// Writes the rest of the standard output. False when any part of the output was lost.
[[nodiscard]] bool flushOutput() noexcept;

/// Runs the body of main() and returns the exit code. An exception, or the loss of output after a success, is passed to
/// `report` as one message, and the exit code is `failureCode`.
[[nodiscard]] int runProgram(int failureCode, const std::function<int()> &body,
                             const std::function<void(const std::string &message)> &report);

} // namespace inin

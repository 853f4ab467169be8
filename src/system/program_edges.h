#pragma once

#include <cstdio>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace inin {

// The interface between main() and the operating system. Texts are UTF-8, whatever encoding the system uses.

/// The words of the command line. The first is the name that the starting program passed, not the file name.
[[nodiscard]] std::vector<std::string> commandWords(int argc, char **argv);
/// The command line arguments after the program name.
[[nodiscard]] std::vector<std::string> programArguments(int argc, char **argv);
/// The value of an environment variable; empty if it is not set.
[[nodiscard]] std::string environmentText(const std::string &name);
/// The program's executable file; empty when the system does not provide it.
[[nodiscard]] std::filesystem::path programFile();

/// Prepares stdin, stdout and stderr; call it before opening any file. The streams pass bytes unchanged. On a console of
/// Windows std::cout and std::cerr then print like printText(). A stream that the parent process left closed fails on
/// every access, but its descriptor is occupied: otherwise the next opened file would get that descriptor, and the printed
/// text with it.
void prepareStandardStreams();

/// Prints a text. Files and pipes get its bytes. A console of Windows gets characters and keeps its code page, which other
/// programs in that console depend on.
void printText(std::FILE *stream, std::string_view text) noexcept;
/// Prints a line. A failure sets the stream's error flag, which flushOutput() reports for stdout. A failure to print to
/// stderr is ignored, because there is no other place to report it.
void printLine(std::FILE *stream, std::string_view line) noexcept;
/// Flushes stdout. False when any part of the output was lost.
[[nodiscard]] bool flushOutput() noexcept;

/// Runs the body of main() and returns the exit code. An exception is passed to `report` and returns `failureCode`.
/// Lost output is reported too, and returns `failureCode` unless the body itself failed.
[[nodiscard]] int runProgram(int failureCode, const std::function<int()> &body,
                             const std::function<void(const std::string &message)> &report);

} // namespace inin

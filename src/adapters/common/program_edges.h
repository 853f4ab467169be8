#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace inin {

// Where a program meets the system that started it: text is UTF-8 inside, whatever the system hands over.

/// The words of the command line behind the program's name.
[[nodiscard]] std::vector<std::string> programArguments(int argc, char **argv);
/// The program's own file; empty when the system does not tell.
[[nodiscard]] std::filesystem::path programFile();
/// The streams carry bytes as they are written, and a console shows them as UTF-8.
void useUtf8Streams();

} // namespace inin

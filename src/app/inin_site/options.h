#pragma once

#include "demo_site/site_maker.h"

#include <filesystem>
#include <string>
#include <variant>

namespace inin::site {

struct MakeCommand {
    std::filesystem::path folder; ///< empty if `into` is given: rows only
    std::string into{};           ///< connection string of a server database to fill; may be empty
    SiteOrder order;
    Overwrite overwrite = Overwrite::onlyOwnFolder;
};
struct CheckCommand {
    std::filesystem::path folder;
};
struct HelpCommand {
    std::string text;
};
/// An invalid command line, with the sentence to show.
struct BadCommand {
    std::string sentence;
};
using Command = std::variant<MakeCommand, CheckCommand, HelpCommand, BadCommand>;

[[nodiscard]] Command readCommandLine(int argc, const char *const *argv);

} // namespace inin::site

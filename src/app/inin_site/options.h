#pragma once

#include "command_line/command_help.h"
#include "demo_site/site_maker.h"
#include "due_letters/due_letters.h"
#include "site_setup/form_documents.h"

#include <filesystem>
#include <string>
#include <variant>

namespace inin::site {

struct MakeCommand {
    std::filesystem::path folder;           ///< empty if there is a connection: rows only
    std::string into{};                     ///< connection string of a server database to fill; may be empty
    std::filesystem::path connectionFile{}; ///< the file of that string; may be empty
    SiteOrder order;
    Overwrite overwrite = Overwrite::onlyOwnFolder;
};

enum class OutputForm { lines, json };

struct CheckCommand {
    std::filesystem::path folder;
    OutputForm form = OutputForm::lines;
    std::filesystem::path bundle{}; ///< the zip to write; may be empty
};
struct WhyCommand {
    std::filesystem::path folder;
    due::Conditions conditions;
    OutputForm form = OutputForm::lines;
};
struct FormsCommand {
    std::filesystem::path folder;
    Existing existing = Existing::keep;
};
struct ToolsCommand {
    std::filesystem::path folder;
};
struct HelpCommand {
    std::string text;
};
/// An invalid command line, with the sentence to show.
struct BadCommand {
    std::string sentence;
};
using Command =
    std::variant<MakeCommand, CheckCommand, WhyCommand, FormsCommand, ToolsCommand, HelpCommand, BadCommand>;

/// The environment variable with a connection string for `make`.
inline constexpr const char *kConnectionVariable = "ININ_CONNECTION";

/// `connection` is the value of kConnectionVariable, which counts if the command line has no connection.
[[nodiscard]] Command readCommandLine(int argc, const char *const *argv, const std::string &connection,
                                      HelpLanguage language);

} // namespace inin::site

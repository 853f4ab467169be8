#pragma once

#include <CLI/CLI.hpp>

#include <initializer_list>
#include <string>
#include <string_view>

namespace inin {

enum class HelpLanguage { japanese, english };

/// The user's language for help pages, by LC_ALL, LC_MESSAGES and LANG.
[[nodiscard]] HelpLanguage helpLanguage();
/// English for an English locale, otherwise Japanese. The first locale that names a language decides; "C" and "POSIX" name
/// none.
[[nodiscard]] HelpLanguage languageOf(std::initializer_list<std::string_view> locales);

/// One text in both languages.
struct HelpText {
    std::string_view japanese, english;
    [[nodiscard]] std::string in(HelpLanguage language) const
    {
        return std::string(language == HelpLanguage::japanese ? japanese : english);
    }
};

/// Makes `app`, and the subcommands that are added afterwards, print their help page in this language, with the words of
/// the page itself too. An option's option_text() is the name of its value; a positional's is its name on the page. Gives
/// `app` the option --version too. A parse that meets --help or --version throws CLI::Success.
void setHelpLanguage(CLI::App &app, HelpLanguage language);
/// The text that --help or --version asked for.
[[nodiscard]] std::string requestedText(const CLI::App &app, const CLI::Success &request);

/// The sentence for a command line that the parser refused, with the parser's own words in brackets.
[[nodiscard]] std::string refusedCommandLine(std::string_view program, std::string_view words, HelpLanguage language);

} // namespace inin

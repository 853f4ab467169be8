#pragma once

#include "app/inin_site/options.h"

#include <CLI/CLI.hpp>

#include <charconv>
#include <optional>

namespace inin::site {

/// The number that the whole text is.
template <class Number> std::optional<Number> wholeNumber(const std::string &text)
{
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
    return number;
}

/// The answer to a month that does not exist or is out of the range.
[[nodiscard]] inline BadCommand badMonth()
{
    return {"--month には1990-01から2098-12までの年月をYYYY-MMの形で指定してください。"};
}

/// A command with its help in one language.
class CommandLine {
public:
    CommandLine(CLI::App &app, const char *name, const HelpText &description, HelpLanguage language)
        : m_command(*app.add_subcommand(name, description.in(language))), m_language(language)
    {
    }

    [[nodiscard]] bool isChosen() const { return m_command.parsed(); }

protected:
    [[nodiscard]] HelpLanguage language() const { return m_language; }
    /// `value` is the option's variable, `name` the name of its value on the help page.
    template <class Value>
    CLI::Option *option(const char *option, Value &value, const HelpText &name, const HelpText &description)
    {
        return m_command.add_option(option, value, description.in(m_language))->option_text(name.in(m_language));
    }
    void flag(const char *flag, bool &value, const HelpText &description)
    {
        m_command.add_flag(flag, value, description.in(m_language));
    }
    [[nodiscard]] std::size_t count(const char *option) const { return m_command.count(option); }

private:
    CLI::App &m_command;
    HelpLanguage m_language;
};

inline constexpr HelpText kSuiteFolder{"総合システムのフォルダー。", "Folder of the suite."};
inline constexpr HelpText kFolder{"DIR", "DIR"}, kFile{"ファイル", "FILE"}, kNumber{"番号", "NUMBER"},
    kCount{"人数", "COUNT"};
inline constexpr HelpText kMonth{"YYYY-MM", "YYYY-MM"}, kDay{"YYYY-MM-DD", "YYYY-MM-DD"};
inline constexpr HelpText kJson{"結果を JSON で表示します。", "Prints the result as JSON."};

} // namespace inin::site

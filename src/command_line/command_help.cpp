#include "command_line/command_help.h"

#include "system/program_version.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <vector>

namespace inin {

namespace {

constexpr HelpText kUsage{"使い方", "Usage"}, kCommand{"コマンド", "COMMAND"}, kCommands{"コマンド", "Commands"};
constexpr HelpText kOption{"オプション", "OPTIONS"}, kOptions{"オプション", "Options"}, kArguments{"引数", "Arguments"};
constexpr HelpText kValue{"値", "VALUE"}, kRequired{"（必須）", " (required)"},
    kDefault{"（既定：{}）", " (default: {})"};
constexpr HelpText kHelp{"この説明を表示します。", "Shows this help."};
constexpr HelpText kVersion{"バージョンを表示します。", "Shows the version."};
constexpr HelpText kRefused{
    "コマンドラインが正しくありません。使い方は {} --help で見られます。（{}）",
    "Invalid command line. See {} --help. ({})",
};
constexpr std::size_t kColumn = 26; ///< where the descriptions begin, in columns of a console

/// Columns of a console: the characters of these pages are either ASCII or twice as wide.
std::size_t widthOf(std::string_view utf8)
{
    std::size_t width = 0;
    for (const char byte : utf8) {
        const auto bits = static_cast<unsigned char>(byte);
        if ((bits & 0xC0U) != 0x80U) width += bits < 0x80U ? 1 : 2;
    }
    return width;
}

class HelpPage : public CLI::Formatter {
public:
    explicit HelpPage(HelpLanguage language) : m_language(language)
    {
        label("Usage", kUsage.in(language));
        label("OPTIONS", kOption.in(language));
        label("SUBCOMMAND", kCommand.in(language));
        label("SUBCOMMANDS", kCommand.in(language));
        label("Positionals", kArguments.in(language));
        label("Options", kOptions.in(language));
        label("Subcommands", kCommands.in(language));
    }

    std::string make_group(std::string group, bool isPositional,
                           std::vector<const CLI::Option *> options) const override
    {
        return CLI::Formatter::make_group(get_label(group), isPositional, options);
    }

    std::string make_subcommands(const CLI::App *app, CLI::AppFormatMode /*mode*/) const override
    {
        const auto commands = app->get_subcommands([](const CLI::App *) { return true; });
        if (commands.empty()) return {};
        std::string page = fmt::format("\n{}:\n", get_label("Subcommands"));
        for (const CLI::App *command : commands) page += line(command->get_name(), command->get_description());
        return page;
    }

    std::string make_option(const CLI::Option *option, bool isPositional) const override
    {
        std::string description = option->get_description();
        if (option->get_required()) description += kRequired.in(m_language);
        if (!option->get_default_str().empty())
            description += fmt::format(fmt::runtime(kDefault.in(m_language)), option->get_default_str());
        return line(make_option_name(option, isPositional) + valueOf(option, isPositional), description);
    }

    std::string make_option_name(const CLI::Option *option, bool isPositional) const override
    {
        return isPositional && !option->get_option_text().empty()
                   ? option->get_option_text()
                   : CLI::Formatter::make_option_name(option, isPositional);
    }

private:
    /// The value of an option after its name; empty for a positional and for a flag.
    [[nodiscard]] std::string valueOf(const CLI::Option *option, bool isPositional) const
    {
        if (isPositional || option->get_type_name().empty()) return {};
        return " " + (option->get_option_text().empty() ? kValue.in(m_language) : option->get_option_text());
    }

    static std::string line(const std::string &name, const std::string &description)
    {
        const std::size_t width = widthOf(name) + 2;
        const std::string gap = width < kColumn ? std::string(kColumn - width, ' ') : "\n" + std::string(kColumn, ' ');
        return "  " + name + gap + description + "\n";
    }

    HelpLanguage m_language;
};

} // namespace

HelpLanguage languageOf(std::initializer_list<std::string_view> locales)
{
    for (std::string_view locale : locales) {
        locale = locale.substr(0, locale.find_first_of("_.@"));
        if (locale.empty() || locale == "C" || locale == "POSIX") continue;
        return locale == "en" ? HelpLanguage::english : HelpLanguage::japanese;
    }
    return HelpLanguage::japanese;
}

HelpLanguage helpLanguage()
{
    const auto variable = [](const char *name) {
        const char *const value = std::getenv(name);
        return std::string_view(value == nullptr ? "" : value);
    };
    return languageOf({variable("LC_ALL"), variable("LC_MESSAGES"), variable("LANG")});
}

void setHelpLanguage(CLI::App &app, HelpLanguage language)
{
    app.formatter(std::make_shared<HelpPage>(language));
    app.set_help_flag("-h,--help", kHelp.in(language));
    app.set_version_flag("--version", fmt::format("{} {}", app.get_name(), programVersion()), kVersion.in(language));
}

std::string requestedText(const CLI::App &app, const CLI::Success &request)
{
    // A request for the version has it as its words.
    return dynamic_cast<const CLI::CallForVersion *>(&request) != nullptr ? request.what() : app.help();
}

std::string refusedCommandLine(std::string_view program, std::string_view words, HelpLanguage language)
{
    return fmt::format(fmt::runtime(kRefused.in(language)), program, words);
}

} // namespace inin

#include "viewer/app/options.h"

#include "runtime/date_text.h"
#include "runtime/text.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <string_view>
#include <vector>

namespace inin::viewer {

namespace {

constexpr std::string_view kMergerName = "wfrimg10";
constexpr std::int16_t kFirstYear = 1900;
constexpr double kMinDots = 20, kMaxDots = 1200;

bool isMergerName(std::string_view program)
{
    const std::size_t slash = program.find_last_of("/\\");
    if (slash != std::string_view::npos) program.remove_prefix(slash + 1);
    return equalsIgnoringAsciiCase(program.substr(0, program.find('.')), kMergerName);
}

std::string joined(std::vector<std::string>::const_iterator begin, std::vector<std::string>::const_iterator end)
{
    std::string whole;
    for (auto part = begin; part != end; ++part) whole += (part == begin ? "" : " ") + *part;
    return whole;
}

/// The causes of names that are separated by commas.
CauseSet causesOf(std::string_view names)
{
    CauseSet causes;
    for (bool isMore = true; isMore;) {
        const std::size_t comma = names.find(',');
        const std::string_view name = names.substr(0, comma);
        const std::optional<Cause> cause = causeNamed(name);
        if (!cause)
            throw CLI::ValidationError("--without-check", "「" + std::string(name) + "」という点検はありません。");
        causes.set(static_cast<std::size_t>(*cause));
        isMore = comma != std::string_view::npos;
        if (isMore) names.remove_prefix(comma + 1);
    }
    return causes;
}

Date dayOfOption(const std::string &text)
{
    const std::optional<Date> day = readDate(text, Regional{});
    if (!day || Year(*day) < kFirstYear)
        throw CLI::ValidationError("--today", "「" + text + "」は日付ではありません。");
    return dayOf(*day);
}

ViewerCommand readOptions(std::vector<std::string> arguments, const std::string &scriptAfterSwitch)
{
    CLI::App app("委任状の印刷プレビュー、印刷、PDF 出力", "formviewer");
    // An argument with a leading slash is a path on every system.
    app.allow_windows_style_options(false);
    ViewCommand command;
    app.add_option("script", command.script, "コマンドファイル（WfdCom.dat）。「/c パス」でも指定できます。");
    app.add_option("--pdf", command.pdf, "委任状を PDF ファイルに書き出します。");
    app.add_option("--png", command.pngFolder, "委任状を一枚ずつ PNG ファイルとしてこのフォルダーに書き出します。");
    app.add_option("--dpi", command.dotsPerInch, "PNG の解像度（既定は 150）。")->check(CLI::Range(kMinDots, kMaxDots));
    app.add_option("--letters", command.letters, "書き出す委任状の番号。例：1-3,7");
    app.add_flag("--check", command.check, "印刷前の点検の結果を表示します。");
    app.add_flag("--json", command.json, "点検の結果を JSON で表示します。");
    app.add_option_function<std::string>(
        "--without-check", [&](const std::string &names) { command.withoutChecks |= causesOf(names); },
        "行わない点検の名前（JSON の cause）。コンマで区切ります。例：signatureOutside,shrunk");
    app.add_option_function<std::string>(
        "--today", [&](const std::string &day) { command.today = dayOfOption(day); },
        "点検でこの日を今日とします（既定は今日）。例：2024-05-20");
    try {
        std::ranges::reverse(arguments); // the parser takes them from the back
        app.parse(std::move(arguments));
    } catch (const CLI::CallForHelp &) {
        return ShowHelp{app.help()};
    } catch (const CLI::ParseError &error) {
        return BadCommandLine{std::string("formviewer: ") + error.what()};
    }
    if (!scriptAfterSwitch.empty()) command.script = scriptAfterSwitch;
    if (command.script.empty()) return BadCommandLine{"formviewer: コマンドファイルが指定されていません。"};
    return command;
}

} // namespace

ViewerCommand readViewerCommand(const std::vector<std::string> &words)
{
    const std::vector<std::string> arguments(words.begin() + (words.empty() ? 0 : 1), words.end());
    const auto isSwitch = [](const std::string &argument) { return argument == "/c" || argument == "/C"; };
    const auto place = std::ranges::find_if(arguments, isSwitch);
    const std::string script = place == arguments.end() ? std::string() : joined(place + 1, arguments.end());
    if (!words.empty() && isMergerName(words.front())) {
        const std::string output = joined(arguments.begin(), place);
        if (output.empty() || script.empty())
            return BadCommandLine{"wfrimg10: 出力する帳票と「/c コマンドファイル」を指定してください。"};
        return MergeCommand{output, script};
    }
    if (place != arguments.end() && script.empty())
        return BadCommandLine{"formviewer: 「/c」の後にコマンドファイルがありません。"};
    return readOptions({arguments.begin(), place}, script);
}

} // namespace inin::viewer

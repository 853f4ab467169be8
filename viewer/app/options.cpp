#include "viewer/app/options.h"

#include "command_line/command_help.h"
#include "runtime/date_text.h"
#include "runtime/text.h"

#include <algorithm>
#include <functional>
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

/// The options about the ledger.
struct LedgerOptions {
    std::optional<LedgerQuestion> question;
    std::optional<MonthRange> months;
};

LedgerQuestion ledgerQuestion(const std::string &name)
{
    constexpr std::string_view kNames[] = {"status", "diff", "missing", "export"}; // in the order of LedgerQuestion
    const auto *const found = std::ranges::find(kNames, name);
    if (found == std::end(kNames))
        throw CLI::ValidationError("--ledger",
                                   "「" + name + "」は指定できません。status、diff、missing、export のどれかです。");
    return static_cast<LedgerQuestion>(found - std::begin(kNames));
}

MonthRange monthsOfOption(const std::string &text)
{
    const std::optional<MonthRange> months = readMonthRange(text);
    if (!months) throw CLI::ValidationError("--period", "「" + text + "」は月ではありません。例：2026-11");
    return *months;
}

LetterSort sortOfOption(const std::string &name)
{
    const std::optional<LetterSort> sort = letterSortNamed(name);
    if (!sort) throw CLI::ValidationError("--order", "「" + name + "」という順はありません。");
    return *sort;
}

/// The options of the command line, in the order of the help page.
class OptionPage {
public:
    OptionPage(CLI::App &app, HelpLanguage language) : m_app(app), m_language(language) {}

    [[nodiscard]] std::string text(std::string_view japanese, std::string_view english) const
    {
        return HelpText{japanese, english}.in(m_language);
    }
    template <class Value>
    CLI::Option *add(const char *name, Value &value, const std::string &valueName, const std::string &description)
    {
        return m_app.add_option(name, value, description)->option_text(valueName);
    }
    void addRead(const char *name, const std::string &valueName, const std::string &description,
                 const std::function<void(const std::string &)> &read)
    {
        m_app.add_option_function<std::string>(name, read, description)->option_text(valueName);
    }
    void flag(const char *name, bool &value, const std::string &description)
    {
        m_app.add_flag(name, value, description);
    }

private:
    CLI::App &m_app;
    HelpLanguage m_language;
};

void addOutputOptions(OptionPage &to, ViewCommand &command)
{
    to.add("script", command.script, to.text("コマンドファイル", "SCRIPT"),
           to.text("コマンドファイル（WfdCom.dat）。「/c パス」でも指定できます。",
                   "Command script (WfdCom.dat); \"/c PATH\" is another form."));
    to.add(
        "--form", command.form, to.text("帳票", "FORM"),
        to.text("コマンドファイルの代わりに、この帳票を見本の委任状で表示します。見本は台帳に記録しません。",
                "Shows this form with sample letters instead of a command script. The ledger does not record them."));
    to.add("--pdf", command.pdf, to.text("ファイル", "FILE"),
           to.text("委任状を PDF ファイルに書き出します。", "Writes the letters to a PDF file."));
    to.flag("--archive", command.archive,
            to.text("PDF を長期保存用（PDF/A-2u）にします。", "Makes the PDF one for archives (PDF/A-2u)."));
    to.flag("--untagged", command.untagged,
            to.text("PDF に読み上げ用のタグとしおりを付けません。",
                    "Writes the PDF without tags for screen readers and without an outline."));
    to.add("--png", command.pngFolder, to.text("フォルダー", "FOLDER"),
           to.text("委任状を一通ずつ PNG ファイルとしてこのフォルダーに書き出します。",
                   "Writes each letter as a PNG file into this folder."));
    to.add("--dpi", command.dotsPerInch, to.text("数", "NUMBER"),
           to.text("PNG の解像度、20 から 1200（既定は 150）。",
                   "Resolution of the PNG files, 20 to 1200 (default: 150)."))
        ->check(CLI::Range(kMinDots, kMaxDots));
    to.add("--letters", command.letters, to.text("番号", "NUMBERS"),
           to.text("書き出す委任状の番号。例：1-3,7", "Numbers of the letters, such as 1-3,7."));
    to.addRead(
        "--order", to.text("順", "ORDER"),
        to.text("PDF に委任状を並べる順。extraction（抽出した順）、insurer（保険者）、district（地区）、name（氏名）",
                "Order of the letters in the PDF: extraction, insurer, district or name."),
        [&command](const std::string &name) { command.arrangement.sort = sortOfOption(name); });
    to.flag("--bundles", command.arrangement.hasCovers,
            to.text("PDF の保険者または地区ごとの束に表紙を付けます。",
                    "Adds a cover to each bundle of an insurer or a district in the PDF."));
}

void addCheckOptions(OptionPage &to, ViewCommand &command)
{
    to.flag("--check", command.check,
            to.text("印刷前の点検の結果を表示します。注意のある委任状があれば終了コード 1、なければ 0 です。",
                    "Prints the findings of the check. Exit code 1 if a letter has findings, otherwise 0."));
    to.flag("--json", command.json,
            to.text("点検、--returned、--ledger の結果を JSON で表示します。",
                    "Prints the result of --check, --returned or --ledger as JSON."));
    to.addRead("--without-check", to.text("名前", "NAMES"),
               to.text("行わない点検の名前（JSON の cause）。コンマで区切ります。例：signatureOutside,shrunk",
                       "Causes that are not checked, by their names in the JSON, such as signatureOutside,shrunk."),
               [&command](const std::string &names) { command.withoutChecks |= causesOf(names); });
}

void addLedgerOptions(OptionPage &to, ReturnedCommand &returned, LedgerOptions &ledger)
{
    to.addRead(
        "--ledger", to.text("内容", "WHAT"),
        to.text("台帳の内容を表示します。status：印刷の記録、diff：前回の印刷との違い（違いがあれば終了コード 1）、"
                "missing：戻っていない委任状（あれば終了コード 1）、export：すべての記録（CSV）。"
                "台帳を読めないときは終了コード 3 です。",
                "Prints the ledger. status: the prints; diff: differences from the last print (exit code 1 if any); "
                "missing: letters that did not come back (exit code 1 if any); export: all records (CSV). Exit code 3 "
                "if the ledger cannot be read."),
        [&ledger](const std::string &name) { ledger.question = ledgerQuestion(name); });
    to.addRead("--period", to.text("月", "MONTHS"),
               to.text("--ledger missing の期間（既定は最後の期間）。例：2026-11、2026-10..2026-11",
                       "The months of --ledger missing (default: the latest), such as 2026-11 or 2026-10..2026-11."),
               [&ledger](const std::string &months) { ledger.months = monthsOfOption(months); });
    to.add(
        "--returned", returned.files, to.text("ファイル", "FILES"),
        to.text(
            "戻ってきた委任状を読み取った PDF、PNG、JPEG、TIFF。QR コードの委任状を台帳で返送済みにします。"
            "人が確かめるページがあれば終了コード 1、なければ 0 です。",
            "Scans of returned letters (PDF, PNG, JPEG, TIFF). Marks the letters of their QR codes as returned in the "
            "ledger. Exit code 1 if a page needs a look, otherwise 0."));
}

void addDayOption(OptionPage &to, ViewCommand &command)
{
    to.addRead("--today", to.text("日付", "DATE"),
               to.text("点検でこの日を今日とします（既定は今日）。例：2024-05-20",
                       "The day that the check compares dates with (default: today), such as 2024-05-20."),
               [&command](const std::string &day) { command.today = dayOfOption(day); });
}

/// The options of a command without "/c" and with their help.
void addOptions(CLI::App &app, ViewCommand &command, ReturnedCommand &returned, LedgerOptions &ledger,
                HelpLanguage language)
{
    OptionPage page(app, language);
    addOutputOptions(page, command);
    addCheckOptions(page, command);
    addLedgerOptions(page, returned, ledger);
    addDayOption(page, command);
}

ViewerCommand readOptions(std::vector<std::string> arguments, const std::string &scriptAfterSwitch)
{
    const HelpLanguage language = helpLanguage();
    CLI::App app(
        HelpText{"委任状の印刷プレビュー、印刷、PDF 出力", "Shows, checks, prints and saves letters"}.in(language),
        "formviewer");
    setHelpLanguage(app, language);
    // An argument with a leading slash is a path on every system.
    app.allow_windows_style_options(false);
    ViewCommand command;
    LedgerOptions ledger;
    ReturnedCommand returned;
    addOptions(app, command, returned, ledger, language);
    try {
        std::ranges::reverse(arguments); // the parser takes them from the back
        app.parse(std::move(arguments));
    } catch (const CLI::Success &request) {
        return ShowHelp{requestedText(app, request)};
    } catch (const CLI::ParseError &error) {
        return BadCommandLine{"formviewer: " + refusedCommandLine("formviewer", error.what(), language)};
    }
    if (!returned.files.empty()) {
        if (!command.needsWindow() || !command.script.empty() || !command.form.empty() || !scriptAfterSwitch.empty())
            return BadCommandLine{"formviewer: --returned は、--json のほかの指定と一緒には使えません。"};
        returned.json = command.json;
        return returned;
    }
    if (!scriptAfterSwitch.empty()) command.script = scriptAfterSwitch;
    if (!command.form.empty() && (!command.script.empty() || ledger.question))
        return BadCommandLine{"formviewer: --form は、コマンドファイルや --ledger と一緒には使えません。"};
    if (ledger.question && ledger.question != LedgerQuestion::diff)
        return LedgerCommand{*ledger.question, command.script, ledger.months, command.json};
    if (command.script.empty() && command.form.empty())
        return BadCommandLine{"formviewer: コマンドファイルが指定されていません。"};
    if (command.pdf.empty() && command.arrangement != LetterArrangement{})
        return BadCommandLine{"formviewer: --order と --bundles は、--pdf と一緒に指定してください。"};
    if (ledger.question) return LedgerCommand{*ledger.question, command.script, ledger.months, command.json};
    if (command.archive && command.untagged)
        return BadCommandLine{"formviewer: --archive と --untagged は一緒に指定できません。"};
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

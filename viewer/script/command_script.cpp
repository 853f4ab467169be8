#include "viewer/script/command_script.h"

#include "runtime/text.h"
#include "suite_text/code_page_932.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <iterator>

namespace inin::viewer {

namespace {

constexpr std::string_view kSeparator = "\",\"";

/// The text between the first and the last quote. A value may contain quotes.
std::optional<std::string> quoted(std::string_view text)
{
    if (text.size() < 2 || !text.starts_with('"') || !text.ends_with('"')) return std::nullopt;
    return std::string(text.substr(1, text.size() - 2));
}

std::optional<std::int32_t> wholeNumber(std::string_view text)
{
    const std::string trimmed = trim(text);
    std::int32_t number = 0;
    const auto [end, error] = std::from_chars(trimmed.data(), trimmed.data() + trimmed.size(), number);
    if (error != std::errc() || end != trimmed.data() + trimmed.size()) return std::nullopt;
    return number;
}

/// The next field after a data source's path: unquoted, or quoted with inner quotes doubled.
std::optional<std::string> takeTailField(std::string_view &rest)
{
    if (!rest.starts_with(',')) return std::nullopt;
    rest.remove_prefix(1);
    rest.remove_prefix(std::min(rest.find_first_not_of(' '), rest.size()));
    std::string field;
    if (!rest.starts_with('"')) {
        field = trim(rest.substr(0, rest.find(',')));
        rest.remove_prefix(std::min(rest.find(','), rest.size()));
        return field;
    }
    for (rest.remove_prefix(1); !rest.empty(); rest.remove_prefix(1)) {
        if (rest.starts_with("\"\"")) {
            rest.remove_prefix(1);
        } else if (rest.starts_with('"')) {
            rest.remove_prefix(1);
            return field;
        }
        field += rest.front();
    }
    return std::nullopt;
}

struct SourceTail {
    std::string separator, quote, noTitles;
};

/// Reads the optional fields after a data source's path: separator, quote character and the flag of a file without titles.
std::optional<SourceTail> readTail(std::string_view rest)
{
    SourceTail tail;
    if (rest.empty()) return tail;
    for (std::string *field : {&tail.separator, &tail.quote, &tail.noTitles}) {
        auto taken = takeTailField(rest);
        if (!taken) return std::nullopt;
        *field = std::move(*taken);
    }
    if (!rest.empty()) return std::nullopt;
    return tail;
}

/// Only the comma and the double quote, which the print program writes, are supported.
bool isKnown(const SourceTail &tail)
{
    constexpr std::string_view flags[] = {"", "0", "1", "-1", "true", "false"};
    return (tail.separator.empty() || tail.separator == ",") && (tail.quote.empty() || tail.quote == "\"") &&
           std::ranges::find(flags, asciiLower(tail.noTitles)) != std::end(flags);
}

bool isTrueFlag(const std::string &flag)
{
    const std::string lower = asciiLower(flag);
    return lower == "1" || lower == "-1" || lower == "true";
}

class ScriptReader {
public:
    CommandScript read(std::string_view bytes)
    {
        m_script.reports.emplace_back();
        while (!bytes.empty()) {
            const std::size_t end = std::min(bytes.find('\n'), bytes.size());
            std::string_view line = bytes.substr(0, end);
            bytes.remove_prefix(std::min(end + 1, bytes.size()));
            if (line.ends_with('\r')) line.remove_suffix(1);
            ++m_number;
            // A NUL or a DOS end-of-file character does not end the script.
            if (!trim(line).empty()) readLine(decodeCp932(line));
        }
        return std::move(m_script);
    }

private:
    using Handler = bool (ScriptReader::*)(std::string_view argument);
    struct Row {
        std::string_view command;
        Handler handler;
    };
    static const Row kRows[];

    void readLine(const std::string &line);

    void addSkipped(std::string_view line, std::string_view why)
    {
        constexpr std::size_t kShown = 80;
        m_script.notices.push_back(
            fmt::format("コマンドファイルの{}行目は、{}ので読み飛ばしました：{}", m_number, why, left(line, kShown)));
    }

    bool form(std::string_view argument)
    {
        const auto path = quoted(argument);
        if (path) report().form = *path;
        return path.has_value();
    }
    bool title(std::string_view argument)
    {
        const auto text = quoted(argument);
        if (text) m_script.title = *text;
        return text.has_value();
    }
    bool data(std::string_view argument)
    {
        const std::size_t split = argument.find(kSeparator);
        if (!argument.starts_with('"') || split == std::string_view::npos || split == 0) return false;
        const std::string_view rest = argument.substr(split + kSeparator.size());
        const std::size_t end = rest.find('"');
        if (end == std::string_view::npos) return false;
        const auto tail = readTail(rest.substr(end + 1));
        if (!tail || !isKnown(*tail)) return false;
        report().data.push_back({std::string(argument.substr(1, split - 1)), std::string(rest.substr(0, end)),
                                 !isTrueFlag(tail->noTitles)});
        return true;
    }
    bool nextReport(std::string_view)
    {
        m_script.reports.emplace_back();
        return true;
    }
    bool item(std::string_view argument)
    {
        const auto both = quoted(argument);
        const std::size_t split = both ? both->find(kSeparator) : std::string::npos;
        if (split == std::string::npos) return false;
        m_script.items.push_back({both->substr(0, split), both->substr(split + kSeparator.size())});
        return true;
    }
    bool offsetX(std::string_view argument) { return keep(argument, m_script.offsetX); }
    bool offsetY(std::string_view argument) { return keep(argument, m_script.offsetY); }
    static bool keep(std::string_view argument, std::int32_t &place)
    {
        const auto number = wholeNumber(argument);
        if (number) place = *number;
        return number.has_value();
    }
    bool paper(std::string_view argument)
    {
        constexpr std::pair<std::string_view, Paper> papers[] = {
            {"A4", Paper::A4}, {"A5", Paper::A5}, {"B5", Paper::B5}};
        const std::string name = trim(argument);
        const auto *const found =
            std::ranges::find_if(papers, [&](const auto &row) { return equalsIgnoringAsciiCase(row.first, name); });
        if (found == std::end(papers)) return false;
        m_script.paper = found->second;
        m_script.namesPaper = true;
        return true;
    }
    bool zoom(std::string_view argument) { return hasNoEffect(argument, "表示倍率の指定"); }
    bool repeatStart(std::string_view argument) { return hasNoEffect(argument, "繰り返し開始位置の指定"); }
    /// A page has one letter, and the window has its own zoom.
    bool hasNoEffect(std::string_view argument, std::string_view what)
    {
        if (!wholeNumber(argument)) return false;
        m_script.notices.push_back(fmt::format("コマンドファイルの{}行目の{}は使いません。", m_number, what));
        return true;
    }
    bool print(std::string_view) { return end(Ending::print); }
    bool printByDialog(std::string_view) { return end(Ending::printByDialog); }
    bool show(std::string_view) { return end(Ending::show); }
    bool end(Ending ending)
    {
        m_script.ending = ending;
        return true;
    }

    ReportOrder &report() { return m_script.reports.back(); }

    CommandScript m_script;
    int m_number = 0;
};

const ScriptReader::Row ScriptReader::kRows[] = {
    {"FileName", &ScriptReader::form},
    {"Title", &ScriptReader::title},
    {"SetDataText", &ScriptReader::data},
    {"PrintOffsetX", &ScriptReader::offsetX},
    {"PrintOffsetY", &ScriptReader::offsetY},
    {"PrintZoom", &ScriptReader::zoom},
    {"SectionRepeatStart", &ScriptReader::repeatStart},
    {"PrintPaper", &ScriptReader::paper},
    {"SetItemValue", &ScriptReader::item},
    {"PrintOut", &ScriptReader::print},
    {"PrintOutFromDialog", &ScriptReader::printByDialog},
    {"ShowWindow", &ScriptReader::show},
    // a merger's commands
    {"setTitle", &ScriptReader::title},
    {"setreport", &ScriptReader::form},
    {"AddReport", &ScriptReader::nextReport},
};

void ScriptReader::readLine(const std::string &line)
{
    const std::size_t comma = line.find(',');
    const std::string command = trim(std::string_view(line).substr(0, comma));
    const std::string_view argument =
        comma == std::string::npos ? std::string_view() : std::string_view(line).substr(comma + 1);
    for (const Row &row : kRows) {
        if (!equalsIgnoringAsciiCase(row.command, command)) continue;
        if (!(this->*row.handler)(argument)) addSkipped(line, "書き方が正しくない");
        return;
    }
    addSkipped(line, "知らない命令な");
}

} // namespace

CommandScript readCommandScript(std::string_view bytes)
{
    return ScriptReader().read(bytes);
}

} // namespace inin::viewer

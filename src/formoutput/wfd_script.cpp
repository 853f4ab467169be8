#include "formoutput/wfd_script.h"

#include "runtime/text.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>

namespace inin {

namespace {

constexpr std::int16_t kRepeatLine = -1;

/// The numeric settings, in their order in the script; a setting at its default writes no line.
struct NumberLine {
    const char *command;
    std::int32_t (*value)(const WfdReport &);
    bool (*isDue)(std::int32_t value);
};
constexpr NumberLine kNumberLines[] = {
    {"PrintOffsetX", [](const WfdReport &report) { return report.offsetX; }, [](std::int32_t n) { return n != 0; }},
    {"PrintOffsetY", [](const WfdReport &report) { return report.offsetY; }, [](std::int32_t n) { return n != 0; }},
    {"PrintZoom", [](const WfdReport &report) { return std::int32_t{report.zoom}; },
     [](std::int32_t n) { return n != 2; }},
    {"SectionRepeatStart", [](const WfdReport &report) { return std::int32_t{report.repeatStart}; },
     [](std::int32_t n) { return n > 0; }},
};

/// A line chosen by a kind; a kind that the table lacks selects the last row.
struct KindLine {
    std::int16_t kind;
    const char *line;
};
constexpr KindLine kPaperLines[] = {{1, "PrintPaper, A5"}, {2, "PrintPaper, B5"}, {0, "PrintPaper, A4"}};
constexpr KindLine kEndLines[] = {
    {kExePrint, "PrintOut"}, {kExePrintByDialog, "PrintOutFromDialog"}, {kExeShow, "ShowWindow,2"}};

template <std::size_t N> const char *lineOf(const KindLine (&table)[N], std::int16_t kind)
{
    const auto *const row = std::ranges::find(table, kind, &KindLine::kind);
    return row == std::end(table) ? table[N - 1].line : row->line;
}

std::string dataLine(const WfdReport::DataEntry &entry)
{
    return fmt::format("SetDataText,\"{}\",\"{}\"{}", entry.name, entry.path, entry.noTitle != 0 ? ",,,1" : "");
}

std::string itemLine(const WfdReport::ItemValue &item)
{
    // Trim for the test only; write the section untrimmed.
    const std::string section = trim(item.section).empty() ? std::string() : "." + item.section;
    return fmt::format("SetItemValue,\"{}{}.{}\",\"{}\"", item.report, section, item.item, item.value);
}

} // namespace

std::string endLine(std::int16_t iExeType)
{
    return lineOf(kEndLines, iExeType);
}

std::string mergeDataLine(const std::string &name, const std::string &path)
{
    return fmt::format(R"(SetDataText,"{}","{}",",", """", True)", name, path);
}

std::vector<std::string> scriptLines(const WfdReport &report, std::int16_t iExeType, std::int16_t iPaper)
{
    std::vector<std::string> lines{fmt::format("FileName,\"{}\"", report.form)};
    if (!report.title.empty()) lines.push_back(fmt::format("Title,\"{}\"", report.title));
    for (const WfdReport::DataEntry &entry : report.data)
        if (!entry.name.empty()) lines.push_back(dataLine(entry));
    for (const NumberLine &rule : kNumberLines)
        if (const std::int32_t value = rule.value(report); rule.isDue(value))
            lines.push_back(fmt::format("{}, {}", rule.command, value));
    // Deliberate: paper -1 selects no paper line, so the previous line is written a second time.
    lines.push_back(iPaper == kRepeatLine ? lines.back() : lineOf(kPaperLines, iPaper));
    for (const WfdReport::ItemValue &item : report.items) lines.push_back(itemLine(item));
    lines.push_back(endLine(iExeType));
    return lines;
}

} // namespace inin

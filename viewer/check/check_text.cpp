#include "viewer/check/check_text.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <iterator>
#include <span>

namespace inin::viewer {

namespace {

using Findings = std::span<const Finding>;

/// Calls `add` with the findings of each cause.
template <class Add> void byCause(const std::vector<Finding> &findings, const Add &add)
{
    for (auto begin = findings.begin(); begin != findings.end();) {
        const Cause cause = begin->cause;
        const auto end = std::find_if(begin, findings.end(), [&](const Finding &f) { return f.cause != cause; });
        add(textOf(cause), Findings(begin, end));
        begin = end;
    }
}

} // namespace

std::string runNoteText(const RunNote &note)
{
    return fmt::format("{}（{}通のうち{}通）", textOf(note.cause).heading, note.of, note.letters);
}

std::string marksText(const CauseSet &causes)
{
    std::string marks;
    for (std::size_t i = 0; i < kCauses; ++i)
        if (causes.test(i))
            fmt::format_to(std::back_inserter(marks), "{}{}", marks.empty() ? "" : "、",
                           textOf(static_cast<Cause>(i)).mark);
    return marks;
}

std::string checkText(const CheckReport &report, const LetterNames &names)
{
    std::string text;
    const auto line = std::back_inserter(text);
    for (const std::string &notice : report.notices) fmt::format_to(line, "{}\n", notice);
    if (report.findings.empty())
        fmt::format_to(line, "{}通を点検しました。注意が必要な委任状はありません。\n", report.letters);
    else
        fmt::format_to(line, "{}通を点検しました。{}通に注意があります。\n", report.letters,
                       lettersIn(report.findings));
    if (report.switchedOff.any()) fmt::format_to(line, "行わない点検：{}\n", marksText(report.switchedOff));
    for (const RunNote &note : report.runNotes) {
        fmt::format_to(line, "\n■ 全体の注意：{}\n   → {}\n", runNoteText(note), textOf(note.cause).remedy);
        if (!note.detail.empty()) fmt::format_to(line, "   {}\n", note.detail);
    }
    byCause(report.findings, [&](const CauseText &cause, Findings findings) {
        const std::size_t letters = lettersIn({findings.begin(), findings.end()});
        fmt::format_to(line, "\n■ {}（{}通）\n   → {}\n", cause.heading, letters, cause.remedy);
        for (const Finding &finding : findings)
            fmt::format_to(line, "   {}{}{}\n", names.titleOf(finding.letter), finding.detail.empty() ? "" : "　…　",
                           finding.detail);
    });
    return text;
}

std::string checkJson(const CheckReport &report, const LetterNames &names)
{
    nlohmann::ordered_json json = {{"letters", report.letters},
                                   {"lettersWithFindings", lettersIn(report.findings)},
                                   {"notices", report.notices},
                                   {"causes", nlohmann::ordered_json::array()}};
    byCause(report.findings, [&](const CauseText &cause, Findings findings) {
        nlohmann::ordered_json letters = nlohmann::ordered_json::array();
        for (const Finding &finding : findings)
            letters.push_back({{"letter", finding.letter + 1},
                               {"insurer", names.insurer(finding.letter)},
                               {"patient", names.patient(finding.letter)},
                               {"detail", finding.detail}});
        json["causes"].push_back({{"cause", cause.name},
                                  {"heading", cause.heading},
                                  {"remedy", cause.remedy},
                                  {"findings", std::move(letters)}});
    });
    json["runNotes"] = nlohmann::ordered_json::array();
    for (const RunNote &note : report.runNotes)
        json["runNotes"].push_back({{"cause", textOf(note.cause).name},
                                    {"heading", textOf(note.cause).heading},
                                    {"remedy", textOf(note.cause).remedy},
                                    {"letters", note.letters},
                                    {"of", note.of},
                                    {"detail", note.detail}});
    json["switchedOff"] = nlohmann::ordered_json::array();
    for (std::size_t i = 0; i < kCauses; ++i)
        if (report.switchedOff.test(i)) json["switchedOff"].push_back(textOf(static_cast<Cause>(i)).name);
    return json.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + "\n";
}

} // namespace inin::viewer

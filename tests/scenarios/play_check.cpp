#include "scenarios/play_check.h"

#include "suite_text/code_page_932.h"
#include "support/file_bytes.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <sstream>

namespace inin {

namespace {

using Json = nlohmann::ordered_json;
using Expected = PlayStep::Expected;

void nameFolder(Json &value, const TemporarySite &site)
{
    if (value.is_string())
        value = withoutFolder(value.get<std::string>(), site);
    else if (value.is_structured())
        for (Json &member : value) nameFolder(member, site);
}

/// True when `whole` contains every key of `part` with the same value; objects are compared in the same way.
bool contains(const Json &whole, const Json &part)
{
    if (!part.is_object() || !whole.is_object()) return whole == part;
    return std::ranges::all_of(part.items(), [&](const auto &member) {
        return whole.contains(member.key()) && contains(whole.at(member.key()), member.value());
    });
}

bool fits(const Expected &expected, const Json &event)
{
    const Json wanted = Json::parse(expected.event);
    return expected.how == Expected::How::containing ? contains(event, wanted) : event == wanted;
}

std::string difference(const Play &play, std::size_t line, const std::string &wanted, const std::string &seen)
{
    return play.file + ":" + std::to_string(line) + ":\n  wanted: " + wanted + "\n  seen:   " + seen;
}

/// Compares the expected lines of one step with its events, in order.
std::string stepDifference(const Play &play, const PlayStep &step, const std::vector<Json> &events)
{
    std::size_t at = 0;
    bool skipping = false;
    std::size_t lastLine = 0;
    for (const Expected &expected : step.expected) {
        lastLine = expected.line;
        if (expected.how == Expected::How::anything) {
            skipping = true;
            continue;
        }
        const std::size_t first = at;
        while (skipping && at < events.size() && !fits(expected, events[at])) ++at;
        if (at == events.size()) {
            const bool skipped = skipping && first < events.size();
            return difference(play, expected.line, expected.event, skipped ? "none such" : "no event");
        }
        if (!fits(expected, events[at])) return difference(play, expected.line, expected.event, events[at].dump());
        ++at;
        skipping = false;
    }
    if (skipping || at == events.size()) return {};
    return difference(play, lastLine, "no further event after " + step.command, events[at].dump());
}

std::string eventDifference(const Play &play, const PlayRecord &record, const TemporarySite &site)
{
    for (std::size_t index = 0; index < play.steps.size(); ++index) {
        if (index >= record.events.size()) return play.file + ": never asked for " + play.steps[index].command;
        std::vector<Json> events;
        for (const std::string &line : record.events[index]) {
            events.push_back(Json::parse(line));
            nameFolder(events.back(), site);
        }
        std::string found = stepDifference(play, play.steps[index], events);
        if (!found.empty()) return found;
    }
    return {};
}

std::string fileDifference(const Play &play, const PlayFile &file, const TemporarySite &site)
{
    const auto path = site.at(file.path);
    if (!std::filesystem::is_regular_file(path)) return difference(play, file.line, file.path, "no such file");
    const std::string wanted = suiteBytes(file.text);
    const std::string seen = withoutFolder(bytesOf(path), site);
    if (wanted == seen) return {};
    std::istringstream wantedLines(decodeCp932(wanted)), seenLines(decodeCp932(seen));
    std::string wantedLine, seenLine;
    std::size_t line = file.line;
    do {
        ++line;
        if (!std::getline(wantedLines, wantedLine)) wantedLine = "the end of the file";
        if (!std::getline(seenLines, seenLine)) seenLine = "the end of the file";
    } while (wantedLine == seenLine && wantedLines && seenLines);
    return difference(play, line, wantedLine, seenLine);
}

} // namespace

std::string firstDifference(const Play &play, const PlayRecord &record, const TemporarySite &site)
{
    std::string found = eventDifference(play, record, site);
    if (found.empty() && record.ranOutOfCommands) found = play.file + ": a form is still open after the last command";
    for (const PlayFile &file : play.expectedFiles)
        if (found.empty()) found = fileDifference(play, file, site);
    for (const std::string &path : play.absentFiles)
        if (found.empty() && std::filesystem::exists(site.at(path))) found = play.file + ": there is a " + path;
    if (found.empty() && record.exitCode != play.exitCode)
        found =
            play.file + ": wanted exit " + std::to_string(play.exitCode) + ", seen " + std::to_string(record.exitCode);
    if (!found.empty() && !record.errors.empty()) found += "\n  errors: " + record.errors;
    return found;
}

} // namespace inin

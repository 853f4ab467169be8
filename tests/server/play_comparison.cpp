#include "server/play_comparison.h"

#include "adapters/suite/suite_database.h"
#include "scenarios/script_driver.h"
#include "scenarios/temporary_site.h"
#include "server/site_copy.h"
#include "suite_text/code_page_932.h"
#include "support/file_bytes.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <filesystem>
#include <map>
#include <sstream>

namespace inin::test {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kEmbedded = "Provider=SQLite;Data Source=site.db";
constexpr const char *kSettings = "adodb.ini";
constexpr const char *kDatabase = "site.db";

struct EmbeddedRow {
    std::string_view play;
    std::string_view reason;
};
constexpr EmbeddedRow kEmbeddedOnly[] = {
    {"database_empty", "the database's file is empty"},
    {"database_other_file", "the database's file is no database"},
    {"text_for_number", "a text stands in a column of numbers"},
    {"visit_no_date", "a text that is no date stands in a column of dates"},
};

using Files = std::map<std::string, std::string>;

/// Every file in the site except the database and its connection string.
Files filesOf(const TemporarySite &site)
{
    Files files;
    for (const auto &entry : fs::recursive_directory_iterator(site.folder())) {
        const std::string name = fs::relative(entry.path(), site.folder()).string();
        if (!entry.is_regular_file() || name.starts_with(kDatabase) || name == kSettings) continue;
        files[name] = withoutFolder(bytesOf(entry.path()), site);
    }
    return files;
}

std::vector<std::string> sortedLines(const std::string &text)
{
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    std::ranges::sort(lines);
    return lines;
}

/// A failure's text without the provider's part: from "(-2147217900)" to the statement or the end, and the list that
/// starts with "Connection State=". Text without such a number is returned unchanged.
std::string withoutProviderText(std::string text)
{
    const std::size_t number = text.find("(-");
    const std::size_t words = number == std::string::npos ? number : text.find(')', number);
    if (words == std::string::npos) return text;
    const std::size_t list = text.find("\rConnection State=");
    if (list != std::string::npos) text.resize(list);
    const std::size_t statement = std::min(text.find("\rSQL=", words), text.size());
    return text.substr(0, words + 1) + text.substr(statement);
}

/// The event with withoutProviderText() in the text of a box and in the fields of a form, which keep a failure's text.
std::string withoutProviderWords(const std::string &event)
{
    auto json = nlohmann::ordered_json::parse(event);
    const std::string kind = json.value("event", "");
    if (kind == "box") json["text"] = withoutProviderText(json.value("text", ""));
    if (kind == "state")
        for (auto &field : json["fields"])
            if (field.is_string()) field = withoutProviderText(field.get<std::string>());
    return json.dump();
}

/// An excerpt at the first difference: an event of the whole screen has thousands of characters.
std::string around(const std::string &text, const std::string &other)
{
    constexpr std::size_t kBefore = 120;
    constexpr std::size_t kShown = 600;
    const auto [at, otherAt] = std::ranges::mismatch(text, other);
    std::size_t start = static_cast<std::size_t>(at - text.begin());
    start = start > kBefore ? start - kBefore : 0;
    while (start > 0 && (static_cast<unsigned char>(text[start]) & 0xC0U) == 0x80) --start;
    return (start > 0 ? "…" : "") + text.substr(start, kShown);
}

std::string eventDifference(const PlayRecord &wanted, const TemporarySite &wantedSite, const PlayRecord &seen,
                            const TemporarySite &seenSite)
{
    const std::size_t steps = std::max(wanted.events.size(), seen.events.size());
    for (std::size_t step = 0; step < steps; ++step) {
        const auto eventsOf = [step](const PlayRecord &record) {
            return step < record.events.size() ? record.events[step] : std::vector<std::string>{};
        };
        const std::vector<std::string> first = eventsOf(wanted);
        const std::vector<std::string> second = eventsOf(seen);
        for (std::size_t at = 0; at < std::max(first.size(), second.size()); ++at) {
            const std::string want = at < first.size() ? withoutFolder(first[at], wantedSite) : "no event";
            const std::string see = at < second.size() ? withoutFolder(second[at], seenSite) : "no event";
            const bool areThere = at < first.size() && at < second.size();
            if (want == see || (areThere && withoutProviderWords(want) == withoutProviderWords(see))) continue;
            return "step " + std::to_string(step) + "\n    embedded: " + around(want, see) +
                   "\n    server:   " + around(see, want);
        }
    }
    return {};
}

std::string fileDifference(const Files &wanted, const Files &seen, bool isAnyOrder)
{
    for (const auto &[name, bytes] : wanted) {
        const auto found = seen.find(name);
        if (found == seen.end()) return name + " is missing on the server's site";
        if (found->second == bytes) continue;
        const std::vector<std::string> first = sortedLines(bytes);
        const std::vector<std::string> second = sortedLines(found->second);
        if (first == second && isAnyOrder) continue;
        if (first == second) return name + " has its lines in another order";
        const auto [want, see] = std::ranges::mismatch(first, second);
        return name + "\n    embedded: " + decodeCp932(want == first.end() ? "no such line" : *want) +
               "\n    server:   " + decodeCp932(see == second.end() ? "no such line" : *see);
    }
    for (const auto &[name, bytes] : seen)
        if (!wanted.contains(name)) return name + " lies on the server's site only";
    return {};
}

/// Makes a site use the server. A play that supplies its own connection string or database tests exactly that, and runs
/// unchanged.
void turnToServer(const TemporarySite &site, const ServerPlayOptions &options)
{
    const fs::path settings = site.folder() / kSettings;
    if (!fs::is_regular_file(settings) || !fs::is_regular_file(site.folder() / kDatabase)) return;
    const std::string bytes = bytesOf(settings);
    if (bytes.find(kEmbedded) == std::string::npos) return;
    const auto database = makeSuiteDatabase([](const std::string &path) { return path; });
    const auto connection = database->newConnection();
    connection->Open(options.connectionString, "", "", -1);
    copyDatabase(site.folder() / kDatabase, *database, *connection, options.dialect);
    writeBytes(settings, site::connectionFile(options.connectionString));
}

/// Runs the scenario driver with the program's database instead of the embedded one.
PlayRecord runOnServer(const Play &play, const TemporarySite &site)
{
    ScriptDriver driver;
    driver.wrapDatabase = [&site](std::unique_ptr<Database>) {
        return makeSuiteDatabase([&site](const std::string &dataSource) { return site.at(dataSource).string(); });
    };
    return driver.run(play, site);
}

} // namespace

std::string embeddedOnly(const std::string &playName)
{
    const auto *const found = std::ranges::find(kEmbeddedOnly, playName, &EmbeddedRow::play);
    return found == std::end(kEmbeddedOnly) ? std::string() : std::string(found->reason);
}

std::string serverDifference(const Play &play, const ServerPlayOptions &options)
{
    const TemporarySite embeddedSite(play);
    const PlayRecord wanted = ScriptDriver().run(play, embeddedSite);
    const TemporarySite serverSite(play);
    turnToServer(serverSite, options);
    const PlayRecord seen = runOnServer(play, serverSite);

    std::string found = eventDifference(wanted, embeddedSite, seen, serverSite);
    if (found.empty() && wanted.exitCode != seen.exitCode)
        found = "exit " + std::to_string(wanted.exitCode) + " embedded, " + std::to_string(seen.exitCode) +
                " on the server";
    if (found.empty()) found = fileDifference(filesOf(embeddedSite), filesOf(serverSite), options.isAnyOrder);
    if (!found.empty() && !seen.errors.empty()) found += "\n    errors: " + seen.errors;
    return found;
}

} // namespace inin::test

#include "faults/faulty_play.h"

#include "adapters/script/script_player.h"
#include "faults/faulty_ports.h"
#include "runtime/runtime_error.h"
#include "shell/start.h"
#include "support/file_bytes.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <sstream>

namespace inin {

namespace {

namespace fs = std::filesystem;

constexpr const char *kCsv = "TMP\\委任状.csv";
constexpr const char *kScript = "TMP\\WfdCom.dat";

constexpr const char *kConnection = "Data Source=site.db";
constexpr const char *kPassword = "geheim-4711";

/// Texts of the program that name no error.
constexpr std::string_view kFixedTexts[] = {
    "起動できません！",
    "保険区分の取得に失敗しました。",
    "印刷条件の取得に失敗しました。",
    "患者データの取得に失敗しました。",
    "出力対象となる日にちを選択してください。",
    "施術者の検索に失敗しました", // followed by the error text of the search, which may be empty
    "患者の検索に失敗しました",
    "システムエラーが発生しました！\r\r", // the same
    "該当する患者データがありません。",   // in a run that follows the failed one
    "環境ファイルの取得に失敗しました。", // the online help's address
    "オンラインヘルプは現在ご利用いただけません。",
    "有効な行が選択されていません！",                                  // a list that could not be filled
    "施術者の検索に失敗しました！\r\r(380)プロパティの値が不正です。", // the same: it has no first entry to select
};
/// The ends of texts about settings that cannot be read.
constexpr std::string_view kFixedEnds[] = {
    "接続文字列取得できません。",
    "ファイルが見つかりません。",
};
/// The run-time errors of files and of memory.
constexpr std::int32_t kSystemErrors[] = {
    error_number::outOfMemory,  error_number::badFileName, error_number::fileNotFound,
    error_number::deviceIo,     error_number::diskFull,    error_number::permissionDenied,
    error_number::diskNotReady, error_number::pathAccess,  error_number::pathNotFound,
};

bool namesError(const std::string &text)
{
    const auto isNamed = [&](std::int32_t number) {
        return text.find(runtimeDescription(number)) != std::string::npos;
    };
    return text.find(kFaultText) != std::string::npos || std::ranges::any_of(kSystemErrors, isNamed);
}

bool isFixed(const std::string &text)
{
    return std::ranges::find(kFixedTexts, text) != std::end(kFixedTexts) ||
           std::ranges::any_of(kFixedEnds, [&](std::string_view end) { return text.ends_with(end); });
}

/// Adds a password to the connection string. The embedded database needs none and ignores it.
void addPassword(const fs::path &settings)
{
    if (!fs::is_regular_file(settings)) return;
    std::string bytes = bytesOf(settings);
    const std::size_t place = bytes.find(kConnection);
    if (place != std::string::npos)
        writeBytes(settings, bytes.insert(place, "Password=" + std::string(kPassword) + ";"));
}

bool revealsPassword(const PlayRecord &record)
{
    const auto holdsIt = [](const std::string &text) { return text.find(kPassword) != std::string::npos; };
    return holdsIt(record.errors) || std::ranges::any_of(record.events, [&](const std::vector<std::string> &step) {
               return std::ranges::any_of(step, holdsIt);
           });
}

/// The texts of the boxes of a record.
std::vector<std::string> boxTexts(const PlayRecord &record)
{
    std::vector<std::string> texts;
    for (const std::vector<std::string> &step : record.events)
        for (const std::string &event : step) {
            const nlohmann::json parsed = nlohmann::json::parse(event);
            if (parsed["event"] == "box") texts.push_back(parsed["text"]);
        }
    return texts;
}

bool endsWithFatal(const PlayRecord &record)
{
    const auto last = std::find_if(record.events.rbegin(), record.events.rend(),
                                   [](const std::vector<std::string> &step) { return !step.empty(); });
    return last != record.events.rend() && last->back().starts_with(R"({"event":"fatal")");
}

std::string wrongEnd(const PlayRecord &record)
{
    std::string code = "exit code " + std::to_string(record.exitCode);
    switch (record.exitCode) {
    case script::kPlayedToTheEnd:
        return record.errors.empty() ? std::string() : code + " with errors: " + record.errors;
    case script::kPlayBroke:
        return endsWithFatal(record) ? std::string() : code + " without a report: " + record.errors;
    case script::kBadCommand: // a window that the play's next command needs was not opened
        return record.errors.empty() ? code + " without a message" : std::string();
    default:
        return code;
    }
}

/// True for a file that is missing or ends with a line end: an unfinished one never does.
bool isFinished(const fs::path &file)
{
    std::error_code ignored;
    return fs::is_regular_file(file, ignored) && bytesOf(file).ends_with("\r\n");
}

bool isFormTool(const std::string &commandLine)
{
    return commandLine.starts_with("wfrfv10.exe") || commandLine.starts_with("WrVb6Viewer.exe");
}

std::size_t openDescriptors()
{
    const fs::directory_iterator descriptors("/proc/self/fd");
    return static_cast<std::size_t>(std::distance(begin(descriptors), end(descriptors)));
}

/// The first line of a text that `isLine` refuses; empty for an unfinished text.
template <class IsLine> std::string wrongLine(const std::string &text, const IsLine &isLine)
{
    if (!text.ends_with("\r\n")) return {};
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);)
        if (!line.ends_with('\r') || !isLine(line.substr(0, line.size() - 1))) return "a wrong line: " + line;
    return {};
}

bool isCsvLine(const std::string &line)
{
    return line.starts_with('"') && line.ends_with('"');
}

bool isCommand(const std::string &line)
{
    return line.find_first_of(" ,") != std::string::npos || line == "PrintOutFromDialog";
}

} // namespace

FolderContent contentOf(const fs::path &folder)
{
    FolderContent content;
    for (const auto &entry : fs::recursive_directory_iterator(folder))
        content[textOf(fs::relative(entry.path(), folder))] =
            entry.is_directory() ? std::nullopt : std::optional(bytesOf(entry.path()));
    return content;
}

FaultyPlay::FaultyPlay(const std::string &file) : m_play(readPlay(file)), m_site(m_play)
{
    addPassword(m_site.at("adodb.ini"));
    m_before = files();
    const PlayRecord usual = play();
    for (const std::string &text : boxTexts(usual)) m_usualTexts.insert(text);
    m_usualFiles = files();
    (void)play();
    m_filesOfRepetition = files();
    m_endsInTemporaryFolder = m_usualFiles.contains("TMP/委任状.csv") && m_usualFiles.contains("TMP/WfdCom.dat");
}

void FaultyPlay::restoreSite()
{
    const FolderContent now = files();
    for (const auto &entry : now)
        if (const auto old = m_before.find(entry.first);
            old == m_before.end() || old->second.has_value() != entry.second.has_value())
            fs::remove_all(m_site.folder() / pathOf(entry.first));
    for (const auto &entry : m_before) {
        const fs::path path = m_site.folder() / pathOf(entry.first);
        if (const auto same = now.find(entry.first); same != now.end() && same->second == entry.second) continue;
        if (entry.second)
            writeBytes(path, *entry.second);
        else
            fs::create_directories(path);
    }
}

PlayRecord FaultyPlay::play()
{
    FaultPlan none;
    return playWith(none);
}

PlayRecord FaultyPlay::playWith(FaultPlan &portFaults)
{
    m_unfinishedStart.clear();
    m_descriptors = openDescriptors();
    ScriptDriver driver;
    driver.program = [&](const Platform &platform) {
        FaultyPorts ports(platform, portFaults);
        ports.onStart = [&](const std::string &commandLine) {
            if (isFormTool(commandLine) && !areOutputsFinished()) m_unfinishedStart = commandLine;
        };
        App app(ports.platform());
        Main(app);
    };
    return driver.run(m_play, m_site);
}

bool FaultyPlay::areOutputsFinished() const
{
    return isFinished(m_site.at(kCsv)) && isFinished(m_site.at(kScript));
}

std::string FaultyPlay::brokenRule(const PlayRecord &record) const
{
    if (std::string wrong = wrongEnd(record); !wrong.empty()) return wrong;
    if (revealsPassword(record)) return "the password is revealed";
    for (const std::string &text : boxTexts(record))
        if (!m_usualTexts.contains(text) && !namesError(text) && !isFixed(text))
            return "a box with another text: " + text;
    if (m_endsInTemporaryFolder && !m_unfinishedStart.empty())
        return "started with unfinished files: " + m_unfinishedStart;
    if (openDescriptors() != m_descriptors) return "a descriptor stays open";
    for (const auto &entry : files())
        if (pathOf(entry.first).filename().string().starts_with(".inin-"))
            return "a temporary file remains: " + entry.first;
    return brokenFileRule();
}

std::string FaultyPlay::brokenFileRule() const
{
    const FolderContent now = files();
    for (const auto &entry : m_before)
        if (!now.contains(entry.first) && !entry.first.starts_with("TMP/")) return "a file is lost: " + entry.first;
    if (now.contains("site.db") && now.at("site.db") != m_before.at("site.db")) return "the database is changed";
    if (std::string wrong = wrongLine(newText("TMP/委任状.csv"), isCsvLine); !wrong.empty()) return wrong;
    return wrongLine(newText("TMP/WfdCom.dat"), isCommand);
}

std::string FaultyPlay::newText(const std::string &name) const
{
    const FolderContent now = files();
    const auto file = now.find(name);
    if (file == now.end()) return {};
    const auto old = m_before.find(name);
    return old != m_before.end() && old->second == file->second ? std::string() : file->second.value_or("");
}

} // namespace inin

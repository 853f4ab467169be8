#include "viewer/ledger/ledger_place.h"

#include "runtime/text.h"

#include <string_view>

namespace inin::viewer {

namespace {

constexpr std::string_view kFileName = "委任状台帳.db";
constexpr std::string_view kSwitchedOff = "off";
#ifdef _WIN32
constexpr std::string_view kSlashes = "/\\";
#else
constexpr std::string_view kSlashes = "/";
#endif

std::string inFolder(std::string folder, std::string_view name)
{
    if (kSlashes.find(folder.back()) == kSlashes.npos) folder += '/';
    return folder.append(name);
}

/// The ledger in a folder, or the file itself.
std::string fileAt(const std::string &place)
{
    return asciiLower(place).ends_with(".db") ? place : inFolder(place, kFileName);
}

} // namespace

std::string ledgerPath(const std::string &environment, const LedgerSettings &settings, const std::string &dataFolder)
{
    if (equalsIgnoringAsciiCase(environment, kSwitchedOff)) return {};
    if (!environment.empty()) return fileAt(environment);
    if (!settings.isUsed) return {};
    if (!settings.place.empty()) return fileAt(settings.place);
    return dataFolder.empty() ? std::string() : inFolder(dataFolder, kFileName);
}

std::string operatorDataFolder(const Environment &environment)
{
    constexpr std::string_view kProgram = "formviewer";
#ifdef _WIN32
    const std::string data = environment("LOCALAPPDATA");
#else
    std::string data = environment("XDG_DATA_HOME");
    // A relative path is invalid there.
    if (!data.starts_with('/')) {
        const std::string home = environment("HOME");
        data = home.empty() ? std::string() : inFolder(home, ".local/share");
    }
#endif
    return data.empty() ? std::string() : inFolder(data, kProgram);
}

} // namespace inin::viewer

#include "viewer/ledger/ledger_place.h"

#include "runtime/text.h"
#include "system/file_path.h"

#include <string_view>

namespace inin::viewer {

namespace {

constexpr std::string_view kFileName = "委任状台帳.db";
constexpr std::string_view kSwitchedOff = "off";

/// The ledger in a folder, or the file itself.
std::string fileAt(const std::string &place)
{
    return asciiLower(place).ends_with(".db") ? place : textOf(pathOf(place) / pathOf(kFileName));
}

} // namespace

std::string ledgerPath(const std::string &environment, const LedgerSettings &settings, const std::string &dataFolder)
{
    if (equalsIgnoringAsciiCase(environment, kSwitchedOff)) return {};
    if (!environment.empty()) return fileAt(environment);
    if (!settings.isUsed) return {};
    if (!settings.place.empty()) return fileAt(settings.place);
    return dataFolder.empty() ? std::string() : fileAt(dataFolder);
}

} // namespace inin::viewer

#pragma once

#include <functional>
#include <string>

namespace inin::viewer {

/// The operator's choices about the ledger.
struct LedgerSettings {
    bool isUsed = true;
    std::string place; ///< a folder, or a file with the extension ".db"; empty for the operator's own data folder
    int months = 24;   ///< how long a run is kept
};
inline constexpr int kFewestMonths = 1, kMostMonths = 120;

/// Where the ledger is; empty if it is switched off. `environment` is the value of ININ_LEDGER: a folder, a file, or "off";
/// it precedes the settings. `dataFolder` is the operator's own data folder.
[[nodiscard]] std::string ledgerPath(const std::string &environment, const LedgerSettings &settings,
                                     const std::string &dataFolder);

using Environment = std::function<std::string(const std::string &name)>;
/// The operator's own data folder for this program; empty if the environment does not name one. The same folder as the
/// toolkit's AppLocalDataLocation.
[[nodiscard]] std::string operatorDataFolder(const Environment &environment);

} // namespace inin::viewer

#pragma once

#include "platform/locale.h"
#include "runtime/regional.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace inin::site {

/// The findings of a check, one sentence each; empty if there is no problem.
using Findings = std::vector<std::string>;

/// Checks the settings, folders, form documents and database of a site. Writes nothing.
[[nodiscard]] Findings checkSite(const std::filesystem::path &folder);

// The parts of checkSite().

struct Branch {
    int code = 0;
    int subCode = 0;
};
/// Returns the branch if "BASEID" names one.
[[nodiscard]] std::optional<Branch> checkSettings(const std::filesystem::path &folder, Findings &findings);
/// Without a branch only tables and columns are checked, not the rows.
void checkDatabase(const std::filesystem::path &folder, const std::optional<Branch> &branch, Findings &findings);

/// The system's code page, in which the programs read the settings.
void checkCodePage(Locale &system, Findings &findings);
/// The system's date format, which is the same for every site that is checked on this computer.
void checkShortDate(const Regional &regional, Findings &findings);

/// The bytes of a file, found by its name in any case; nothing if it cannot be read.
[[nodiscard]] std::optional<std::string> readSiteFile(const std::filesystem::path &path);
/// The same for a settings file; one that is missing, not a file or too large is reported as a finding.
[[nodiscard]] std::optional<std::string> readSettingsFile(const std::filesystem::path &path, const std::string &missing,
                                                          Findings &findings);

} // namespace inin::site

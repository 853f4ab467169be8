#pragma once

#include "platform/locale.h"
#include "runtime/regional.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace inin::site {

/// What a check found, a sentence each; empty when all is well.
using Findings = std::vector<std::string>;

/// Checks settings, folders, form documents and the database of a site. Writes nothing.
[[nodiscard]] Findings checkSite(const std::filesystem::path &folder);

// The parts of it.

struct Branch {
    int code = 0;
    int subCode = 0;
};
/// The branch, when "BASEID" names one.
[[nodiscard]] std::optional<Branch> checkSettings(const std::filesystem::path &folder, Findings &findings);
/// Without a branch the rows are not looked at, only tables and columns.
void checkDatabase(const std::filesystem::path &folder, const std::optional<Branch> &branch, Findings &findings);

/// The machine's code page, in which the programs read the settings.
void checkCodePage(Locale &system, Findings &findings);
/// The machine's own form of a date, which is the same for every site that is checked on it.
void checkShortDate(const Regional &regional, Findings &findings);

/// The bytes of a file whose name is found whatever its case; nothing when it cannot be read.
[[nodiscard]] std::optional<std::string> readSiteFile(const std::filesystem::path &path);
/// Likewise a settings file; one that is missing, is no file or is too large becomes a finding.
[[nodiscard]] std::optional<std::string> readSettingsFile(const std::filesystem::path &path, const std::string &missing,
                                                          Findings &findings);

} // namespace inin::site
